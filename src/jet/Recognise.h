#pragma once

#include <string_view>

namespace quarnel02::jet {

/// True for the first bytes of an Access database (Jet or ACE); 20 of them are enough. What follows
/// may still be damaged, protected or of an unknown version: Reader says so.
bool IsAccessHead(std::string_view head);

/// Which programs open a file.
enum class Generation {
    Access97,    ///< Jet 3: all of them
    Access2000,  ///< Jet 4: Access 2000 and later ones; the one that is written
    Access2007   ///< ACE (.accdb): Access 2007 and later ones
};

/// Generation of a file that IsAccessHead knows by its first bytes.
Generation GenerationOf(std::string_view head);

}  // namespace quarnel02::jet
