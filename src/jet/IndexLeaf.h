#pragma once

// Internal to jet/.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel02::jet {

/// Keys of an index sort as their bytes do; a pointer to the row follows the values. Names are of
/// letters only.
void AppendKey(std::string& key, std::int32_t number);
void AppendKey(std::string& key, std::string_view name);
void AppendRowPointer(std::string& key, std::uint32_t pointer);

/// The only page of an index of the table defined on page `owner`. Throws RunTimeError
/// (SubscriptOutOfRange) when the keys do not fit there.
std::string EncodeIndexLeaf(std::size_t owner, std::vector<std::string> keys);

}  // namespace quarnel02::jet
