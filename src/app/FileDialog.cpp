#include "app/FileDialog.h"

namespace quarnel02 {

namespace {

constexpr const char* kModelExtension = ".mdb";

}  // namespace

std::string WithModelExtension(const std::string& name) {
    return name.empty() || name.ends_with(kModelExtension) ? name : name + kModelExtension;
}

}  // namespace quarnel02
