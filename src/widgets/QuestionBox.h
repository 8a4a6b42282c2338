#pragma once

#include <QMessageBox>

namespace quarnel02 {

/// A question that only its buttons answer: Escape and the close box do nothing. Being a class of
/// its own it is never replaced by a box of the desktop, where Escape might answer No.
class QuestionBox : public QMessageBox {
    Q_OBJECT

  public:
    using QMessageBox::QMessageBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

}  // namespace quarnel02
