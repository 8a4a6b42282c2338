#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <functional>
#include <utility>

namespace quarnel02::test {

/// Calls back, while it lives, whenever a window or control of that class appears.
class OnShow : public QObject {
  public:
    using Act = std::function<void(QWidget&)>;

    OnShow(const char* className, Act act) : m_class(className), m_act(std::move(act)) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->inherits(m_class)) {
            m_act(*static_cast<QWidget*>(watched));
        }
        return false;
    }

  private:
    const char* m_class;
    Act m_act;
};

}  // namespace quarnel02::test
