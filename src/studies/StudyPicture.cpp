#include "studies/StudyPicture.h"

#include "widgets/PictureWords.h"

namespace quarnel02 {

StudyPicture::StudyPicture(QWidget* parent)
    : PictureBox(parent), m_picture(kTwipsPerPixel, kTwipsPerPixel) {
    SetPicture(m_picture);
    AddPictureCommands(*this, [this](PictureCommand command) { emit Asked(command); });
}

void StudyPicture::Draw(const std::function<void(Picture&)>& draw) {
    draw(m_picture);
    setAccessibleDescription(PictureWords(m_picture));
}

}  // namespace quarnel02
