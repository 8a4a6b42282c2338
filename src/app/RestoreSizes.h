#pragma once

#include <QByteArray>
#include <QSplitter>

namespace quarnel02 {

/// Gives the parts of a splitter the sizes of a state that QSplitter::saveState gave. A damaged
/// state, which would also turn the splitter or make its handles others, is passed over.
void RestoreSizes(QSplitter& splitter, const QByteArray& state);

}  // namespace quarnel02
