#include "app/RestoreSizes.h"

#include <tuple>

namespace quarnel02 {

namespace {

/// What a state holds beside sizes.
auto LookOf(const QSplitter& splitter) {
    return std::tuple(splitter.orientation(), splitter.handleWidth(),
                      splitter.childrenCollapsible(), splitter.opaqueResize());
}

}  // namespace

void RestoreSizes(QSplitter& splitter, const QByteArray& state) {
    const QByteArray before = splitter.saveState();
    const auto look = LookOf(splitter);
    splitter.restoreState(state);
    if (LookOf(splitter) != look) {
        splitter.restoreState(before);
    }
}

}  // namespace quarnel02
