#include "print/Blocks.h"

#include <QFontMetricsF>
#include <algorithm>
#include <iterator>
#include <utility>

#include "print/PaperFonts.h"
#include "print/TableBlocks.h"
#include "print/WrapText.h"
#include "widgets/PicturePainter.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

constexpr double kPartGap = 140;     // twips
constexpr double kSectionGap = 360;  // twips
constexpr double kFactGap = 40;      // twips

/// Lines of text, one under the other.
Block TextBlock(const QStringList& lines, PaperText text, double gap) {
    const QFont font = PaperFont(text);
    const QFontMetricsF metrics(font);
    const QColor ink = text == PaperText::Small ? SoftPaperInk() : PaperInk();
    Block block;
    block.Height = metrics.lineSpacing() * static_cast<double>(lines.size());
    block.Gap = gap;
    block.Paint = [lines, font, metrics, ink](QPainter& painter) {
        painter.setFont(font);
        painter.setPen(ink);
        double base = metrics.ascent();
        for (const QString& line : lines) {
            painter.drawText(QPointF(0, base), line);
            base += metrics.lineSpacing();
        }
    };
    return block;
}

Block Wrapped(const std::string& text, PaperText style, double width, double gap) {
    return TextBlock(WrapText(QString::fromStdString(text), width, PaperFont(style)), style, gap);
}

/// A drawing on paper of its own, with its words below.
struct PaperPicture {
    Picture Drawing;
    Extent Bounds;
    double Scale;
    double Left;  ///< twips
    QString Family;
};

PaperPicture OnPaper(const PicturePart& part, const PaperBody& room) {
    PaperPicture picture{part.Drawing, {}, 1, 0, PaperFamily()};
    Page page;
    page.Width = room.Width;
    page.Height = std::min(room.Width * part.Shape, room.Height);
    page.Measure = &ScreenMeasure(picture.Family);
    picture.Drawing.LayOut(page);
    picture.Bounds =
        picture.Drawing.IsComposed() ? picture.Drawing.Bounds() : picture.Drawing.Drawn();
    const double width = picture.Bounds.Right - picture.Bounds.Left;
    picture.Scale = std::min(
        {1.0, room.Width / width, room.Height / (picture.Bounds.Bottom - picture.Bounds.Top)});
    picture.Left = picture.Scale < 1 ? (room.Width - width * picture.Scale) / 2 : 0;
    return picture;
}

void PaintPicture(QPainter& painter, const PaperPicture& picture) {
    painter.save();
    painter.translate(picture.Left, 0);
    painter.scale(picture.Scale, picture.Scale);
    painter.translate(-picture.Bounds.Left, -picture.Bounds.Top);
    for (const PictureFigure& figure : picture.Drawing.Figures()) {
        PaintFigure(painter, figure, {picture.Family, false});
    }
    painter.restore();
}

double WidthOfNames(const Document& document, double most) {
    const QFontMetricsF metrics(PaperFont(PaperText::Plain));
    double width = 0;
    for (const DocumentPart& part : document.Parts) {
        if (const auto* facts = std::get_if<FactsPart>(&part)) {
            for (const Fact& fact : facts->Facts) {
                width =
                    std::max(width, metrics.horizontalAdvance(QString::fromStdString(fact.Name)));
            }
        }
    }
    return std::min(width, most);
}

class BlockMaker {
  public:
    BlockMaker(const Document& document, const PaperBody& body)
        : m_body(body), m_names(WidthOfNames(document, body.Width / 2)) {}

    std::vector<Block> Take() { return std::move(m_blocks); }

    void AddTitle(const std::string& title) {
        m_blocks.push_back(Wrapped(title, PaperText::Title, m_body.Width, 0));
    }

    void Add(const HeadingPart& heading) {
        m_blocks.push_back(Wrapped(heading.Text, PaperText::Heading, m_body.Width, kSectionGap));
        m_blocks.back().WithNext = true;
    }

    void Add(const ParagraphPart& paragraph) {
        m_blocks.push_back(Wrapped(paragraph.Text,
                                   paragraph.Strong ? PaperText::Strong : PaperText::Plain,
                                   m_body.Width, kPartGap));
    }

    void Add(const FactsPart& facts) {
        for (const Fact& fact : facts.Facts) {
            AddFact(fact, &fact == facts.Facts.data() ? kPartGap : kFactGap);
        }
    }

    void Add(const TablePart& table) {
        std::vector<Block> blocks = TableBlocks(table, m_body);
        if (!blocks.empty()) {
            blocks.front().Gap = kPartGap;
        }
        std::move(blocks.begin(), blocks.end(), std::back_inserter(m_blocks));
    }

    /// A long one can be broken between any lines.
    void Add(const PrintedPart& printed) {
        const QFontMetricsF metrics(PaperFont(PaperText::Printed));
        const int columns =
            static_cast<int>(m_body.Width / metrics.horizontalAdvance(QLatin1Char('0')));
        QStringList lines;
        for (const QString& line : QString::fromStdString(printed.Text).split(QLatin1Char('\n'))) {
            lines << WrapColumns(line, columns);
        }
        if (lines.back().isEmpty()) {
            lines.removeLast();
        }
        const bool together =
            metrics.lineSpacing() * static_cast<double>(lines.size()) < m_body.Height / 2;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            m_blocks.push_back(TextBlock({lines[i]}, PaperText::Printed, i == 0 ? kPartGap : 0));
            m_blocks.back().WithNext = together && i + 1 < lines.size();
        }
    }

    /// There is room for a title or a heading above it.
    void Add(const PicturePart& part) {
        const Block words = Wrapped(part.Words, PaperText::Small, m_body.Width, 0);
        constexpr double gap = 60;
        const double above = QFontMetricsF(PaperFont(PaperText::Title)).lineSpacing() + kSectionGap;
        const PaperPicture picture =
            OnPaper(part, {m_body.Width, m_body.Height - above - gap - words.Height});
        const double height = (picture.Bounds.Bottom - picture.Bounds.Top) * picture.Scale;
        Block block;
        block.Height = height + gap + words.Height;
        block.Gap = kPartGap;
        block.Paint = [picture, height, words](QPainter& painter) {
            PaintPicture(painter, picture);
            painter.translate(0, height + gap);
            words.Paint(painter);
        };
        m_blocks.push_back(std::move(block));
    }

  private:
    void AddFact(const Fact& fact, double gap) {
        constexpr double between = 240;
        const Block name = Wrapped(fact.Name, PaperText::Plain, m_names, 0);
        const double left = m_names + between;
        const Block value = Wrapped(fact.Value, PaperText::Plain, m_body.Width - left, 0);
        Block block;
        block.Height = std::max(name.Height, value.Height);
        block.Gap = gap;
        block.Paint = [name, value, left](QPainter& painter) {
            name.Paint(painter);
            painter.translate(left, 0);
            value.Paint(painter);
        };
        m_blocks.push_back(std::move(block));
    }

    PaperBody m_body;
    double m_names;  ///< width of the names of all facts, twips
    std::vector<Block> m_blocks;
};

}  // namespace

std::vector<Block> BlocksOf(const Document& document, const PaperBody& body) {
    BlockMaker maker(document, body);
    maker.AddTitle(document.Title);
    for (const DocumentPart& part : document.Parts) {
        std::visit([&](const auto& each) { maker.Add(each); }, part);
    }
    return maker.Take();
}

}  // namespace quarnel02
