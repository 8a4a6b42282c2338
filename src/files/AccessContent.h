#pragma once

// Internal to files/: a model as an Access database.

#include <string>

#include "files/ModelImage.h"

namespace quarnel02 {

/// The content of an Access database with the eight tables of the image, made now. Whole numbers
/// are Long Integers, reals Doubles, singles Singles, texts Text(255). Throws NotAModel in the name
/// of `name` unless the image is a whole model, and what WriteDatabase throws.
std::string AccessContent(ModelImage& image, const std::string& name);

}  // namespace quarnel02
