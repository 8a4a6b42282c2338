#pragma once

#include <QImage>
#include <filesystem>
#include <functional>

#include "widgets/PictureBox.h"

namespace quarnel02 {

/// A chart of a study. Its menu copies it and asks to save it.
class StudyPicture : public PictureBox {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StudyPicture)

  public:
    explicit StudyPicture(QWidget* parent = nullptr);

    /// `draw` composes the picture.
    void Draw(const std::function<void(Picture&)>& draw);
    [[nodiscard]] const Picture& Shown() const { return m_picture; }

    /// Puts the picture on the clipboard as an image on white paper.
    void Copy() const;

  signals:
    /// Chosen from the menu.
    void SaveAsked();

  private:
    void AddCommand(const QString& text, const QString& name, const std::function<void()>& command);

    Picture m_picture;
};

/// The picture on white paper, `scale` pixels of the image to a pixel of 15 twips.
QImage ImageOf(const Picture& picture, double scale);

/// Writes the picture, whole or not at all, as the file's extension says: as a PNG image, else as
/// SVG. Throws as WriteWhole does.
void SavePicture(const std::filesystem::path& file, const Picture& picture);

}  // namespace quarnel02
