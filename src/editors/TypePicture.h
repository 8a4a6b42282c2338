#pragma once

#include <QWidget>
#include <optional>

#include "picture/Picture.h"

namespace quarnel02 {

/// The picture of an equipment class on white paper, whatever the palette. Its tag holds the
/// code of the class; a long tool tip is broken into lines. It can have the focus, and tells of the
/// keys that choose a class; Enter held down counts once.
class TypePicture : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString tag MEMBER m_tag)

  public:
    explicit TypePicture(QWidget* parent = nullptr);

    [[nodiscard]] const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }
    /// Shows the class, or blank paper.
    void SetPicture(std::optional<ResourceType> type);

    [[nodiscard]] QSize sizeHint() const override;

  signals:
    void Typed(const QString& text);  ///< a letter or digit
    void Stepped(int step);           ///< an arrow: 1 forward, -1 back
    void Entered();                   ///< Enter

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_tag;
    std::optional<ResourceType> m_type;
};

}  // namespace quarnel02
