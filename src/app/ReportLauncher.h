#pragma once

#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace quarnel02 {

class WindowMemory;

/// Starts "program file" without waiting. Where there is no such program, the file is opened in
/// the platform's text editor, and where there is none either, in a viewer of our own.
class ReportLauncher {
  public:
    /// The three ways, in the order they are tried; the first two say whether they succeeded.
    struct Ways {
        std::function<bool(const QString& program, const QString& file)> StartProgram;
        std::function<bool(const QString& file)> OpenInEditor;
        std::function<void(const QString& file)> View;
    };

    /// `parent` owns the viewers; `memory`, if any, knows where they saved last, and outlives them.
    explicit ReportLauncher(QWidget* parent, WindowMemory* memory = nullptr);
    explicit ReportLauncher(Ways ways);

    /// The program is the command line up to its first blank, the file all that follows. Throws
    /// FileAccess when a directory, a pipe or a device stands in place of the file.
    void Start(const std::string& commandLine) const;

  private:
    Ways m_ways;
};

}  // namespace quarnel02
