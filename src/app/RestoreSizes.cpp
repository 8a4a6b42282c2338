#include "app/RestoreSizes.h"

#include <tuple>

namespace quarnel02 {

namespace {

/// What a state holds beside sizes. A damaged one gives orientations that are none.
auto LookOf(const QSplitter& splitter) {
    return std::tuple(static_cast<int>(splitter.orientation()), splitter.handleWidth(),
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
