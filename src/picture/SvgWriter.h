#pragma once

#include <string>

#include "picture/Picture.h"

namespace quarnel02 {

/// The picture as an SVG document on white paper, at 96 pixels to the inch. The paper grows where
/// figures reach beyond it.
std::string ToSvg(const Picture& picture);

}  // namespace quarnel02
