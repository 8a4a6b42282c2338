#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace quarnel02 {

/// A tab to a column; columns count from 1.
struct Tab {
    int Column;
};

/// The start of a column of a table: as a Tab, but a column before it that is too wide pushes what
/// follows along the line, with one blank between them.
struct Column {
    int Start;
};

/// What a line printer writes onto: a text file, a picture.
class LineSink {
  public:
    virtual ~LineSink() = default;
    /// Writes `text` so that it begins at `column` (from 1) of the current line.
    virtual void Write(int column, std::string_view text) = 0;
    /// Ends the current line; the next Write stands on a new one.
    virtual void EndLine() = 0;
};

/// Writes items with line-printer semantics: items follow one another without separation; a Tab
/// moves to its column, on the next line when the position is already beyond it; a number is
/// written with a blank (or the minus sign) before it and a blank behind it. Characters are
/// counted as code points of UTF-8; a control character is written as a blank.
class LinePrinter {
  public:
    explicit LinePrinter(LineSink& sink) : m_sink(sink) {}

    /// Writes the items and ends the line.
    template <class... Items>
    void Print(const Items&... items) {
        (Put(items), ...);
        NewLine();
    }

    /// Writes the items and leaves the line open for the next statement.
    template <class... Items>
    void PrintOpen(const Items&... items) {
        (Put(items), ...);
    }

    /// Column (from 1) at which the next item will stand.
    [[nodiscard]] int Position() const { return m_column; }

  private:
    void Put(Tab tab);
    void Put(Column column);
    void Put(std::string_view text);
    void Put(std::integral auto number) { PutNumber(static_cast<double>(number)); }
    void Put(double number) { PutNumber(number); }
    void Put(float number);
    void PutNumber(double number);
    void Write(std::string_view text);
    void NewLine();

    LineSink& m_sink;
    int m_column = 1;
    bool m_endsBlank = true;  ///< a blank or nothing stands in front of the position
    bool m_separate = false;  ///< the next text must not touch the one before
};

/// Collects lines as text, "\n" at the end of each.
class TextLines : public LineSink {
  public:
    void Write(int column, std::string_view text) override;
    void EndLine() override;

    [[nodiscard]] const std::string& Text() const { return m_text; }

  private:
    std::string m_text;
};

/// Text of a number as a line printer writes it: " 5 ", "-5 ".
std::string PrintedNumber(double number);

/// The text with a blank for every control character, so that a line stays a line.
std::string WithoutControls(std::string_view text);

/// Number of characters (code points) of a UTF-8 text.
int CharacterCount(std::string_view text);

}  // namespace quarnel02
