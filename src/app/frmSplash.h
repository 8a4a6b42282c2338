#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

namespace quarnel02 {

namespace Ui {
class frmSplash;
}

/// Greets over the main window for about two seconds, or until a key or a click. It does not take
/// the focus: a key typed meanwhile reaches the main window as well.
class frmSplash : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmSplash)

  public:
    explicit frmSplash(QWidget* parent);
    ~frmSplash() override;

    /// Shows it in the middle of its parent; it deletes itself when it closes.
    void ShowOverParent();

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::unique_ptr<Ui::frmSplash> m_ui;
    QTimer* m_timer;  ///< tmrQuitMe
    bool m_seen = false;
};

}  // namespace quarnel02
