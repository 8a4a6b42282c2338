#pragma once

#include <QApplication>
#include <QWidget>
#include <string>
#include <vector>

namespace quarnel02::test {

/// What a user can see and use of a window.
template <class Kind>
std::vector<Kind*> UsableIn(const QWidget& top) {
    std::vector<Kind*> usable;
    for (Kind* widget : top.findChildren<Kind*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &top &&
            !widget->visibleRegion().isEmpty()) {
            usable.push_back(widget);
        }
    }
    return usable;
}

inline std::string NameOf(const QWidget& widget) {
    return widget.objectName().isEmpty() ? widget.metaObject()->className()
                                         : widget.objectName().toStdString();
}

/// Who gets a key: an open popup before the focus.
inline QWidget& HearerIn(QWidget& top) {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* window = popup == nullptr ? &top : popup;
    QWidget* focus = window->focusWidget();
    const bool hears = focus != nullptr && focus->isVisible() && focus->isEnabled();
    return hears ? *focus : *window;
}

}  // namespace quarnel02::test
