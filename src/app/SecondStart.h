#pragma once

#include <QLocalServer>
#include <QObject>
#include <filesystem>
#include <functional>

namespace quarnel02 {

/// Hears of further starts of the program on an application directory: each hands over the file
/// that it was given, through the local socket "quarnel02.socket" of that directory. Where such a
/// socket cannot be made, as under a path of more than some hundred letters, it hears of none.
class SecondStarts : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SecondStarts)

  public:
    /// Takes the file, or nothing but the wish to be seen where the path is empty. False when it
    /// has to finish something first. Must return soon: the other program waits.
    using Take = std::function<bool(const std::filesystem::path& file)>;

    /// For the program that has the lock of the directory.
    SecondStarts(const std::filesystem::path& directory, Take take);
    ~SecondStarts() override;

  private:
    void Answer();

    QLocalServer m_server;
    Take m_take;
};

/// What became of a file that was handed over.
enum class HandedOver { Taken, Refused, NoAnswer };

/// Hands a file, or an empty path, to the program that runs on the directory. Waits a few seconds
/// at most.
HandedOver HandOver(const std::filesystem::path& directory, const std::filesystem::path& file);

}  // namespace quarnel02
