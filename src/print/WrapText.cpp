#include "print/WrapText.h"

#include <QFontMetricsF>
#include <algorithm>

namespace quarnel02 {

namespace {

/// Characters of the text that fit, at least one.
qsizetype FittingLength(const QString& text, double width, const QFontMetricsF& metrics) {
    qsizetype length = 1;
    while (length < text.size() && metrics.horizontalAdvance(text.left(length + 1)) <= width) {
        ++length;
    }
    return length;
}

class Wrapper {
  public:
    Wrapper(double width, const QFont& font) : m_width(width), m_metrics(font) {}

    void Add(const QString& word) {
        const QString longer = m_line.isEmpty() ? word : m_line + QLatin1Char(' ') + word;
        if (Fits(longer)) {
            m_line = longer;
            return;
        }
        EndLine();
        m_line = word;
        while (!Fits(m_line) && m_line.size() > 1) {
            const qsizetype length = FittingLength(m_line, m_width, m_metrics);
            m_lines << m_line.left(length);
            m_line = m_line.mid(length);
        }
    }

    QStringList Take() {
        EndLine();
        return m_lines.isEmpty() ? QStringList{QString()} : m_lines;
    }

  private:
    [[nodiscard]] bool Fits(const QString& text) const {
        return m_metrics.horizontalAdvance(text) <= m_width;
    }
    void EndLine() {
        if (!m_line.isEmpty()) {
            m_lines << m_line;
        }
        m_line.clear();
    }

    double m_width;
    QFontMetricsF m_metrics;
    QString m_line;
    QStringList m_lines;
};

}  // namespace

QStringList WrapText(const QString& text, double width, const QFont& font) {
    Wrapper wrapper(width, font);
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        wrapper.Add(word);
    }
    return wrapper.Take();
}

QStringList WrapColumns(const QString& line, int columns) {
    constexpr int fewest = 8;
    constexpr int indent = 4;
    const int room = std::max(columns, fewest);
    QStringList lines{line.left(room)};
    for (qsizetype from = room; from < line.size(); from += room - indent) {
        lines << QString(indent, QLatin1Char(' ')) + line.mid(from, room - indent);
    }
    return lines;
}

}  // namespace quarnel02
