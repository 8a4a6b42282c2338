#pragma once

#include <QTextBrowser>

namespace quarnel02 {

/// The text of the guide with its pictures, which the program carries and which are no wider than
/// the text.
class GuideText : public QTextBrowser {
    Q_OBJECT

  public:
    using QTextBrowser::QTextBrowser;

    /// Shows the guide in lines of that width, pixels.
    void ShowGuide(int width);

    QVariant loadResource(int type, const QUrl& name) override;

  private:
    int m_width = 0;
};

}  // namespace quarnel02
