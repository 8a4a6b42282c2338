#pragma once

#include <functional>

#include "print/PictureCommands.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {

/// A chart of a study. Its menu asks to copy, save and print it.
class StudyPicture : public PictureBox {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StudyPicture)

  public:
    explicit StudyPicture(QWidget* parent = nullptr);

    /// `draw` composes the picture.
    void Draw(const std::function<void(Picture&)>& draw);
    [[nodiscard]] const Picture& Shown() const { return m_picture; }

  signals:
    /// Chosen from the menu.
    void Asked(quarnel02::PictureCommand command);

  private:
    Picture m_picture;
};

}  // namespace quarnel02
