#include "widgets/QuestionBox.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace quarnel02 {

void QuestionBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Cancel)) {
        event->accept();
        return;
    }
    QMessageBox::keyPressEvent(event);
}

void QuestionBox::closeEvent(QCloseEvent* event) {
    event->ignore();
}

}  // namespace quarnel02
