#pragma once

#include <string>
#include <variant>
#include <vector>

#include "picture/Picture.h"
#include "study/StudyTable.h"

namespace quarnel02 {

// A document for paper: parts in their order. Whoever prints it chooses page, letters and breaks;
// tables and texts are wrapped to the width of the page, pictures laid out for it.

/// The heading of all parts up to the next one.
struct HeadingPart {
    std::string Text;
};

struct ParagraphPart {
    std::string Text;
    bool Strong = false;  ///< must not be overlooked
};

/// What stands beside its name.
struct Fact {
    std::string Name;
    std::string Value;
};
struct FactsPart {
    std::vector<Fact> Facts;
};

struct TableColumn {
    std::string Heading;
    bool Figures = false;  ///< numbers, which stand at the right
};
struct TablePart {
    std::vector<TableColumn> Columns;
    std::vector<std::vector<std::string>> Rows;  ///< each with a cell per column
};

/// Lines in fixed pitch, "\n" behind each.
struct PrintedPart {
    std::string Text;
};

struct PicturePart {
    Picture Drawing;
    std::string Words;  ///< what it shows, one sentence
    double Shape;       ///< height of the paper that it wants, in widths
};

using DocumentPart =
    std::variant<HeadingPart, ParagraphPart, FactsPart, TablePart, PrintedPart, PicturePart>;

struct Document {
    std::string Title;    ///< "Line design: Pump"
    std::string Product;  ///< on every page
    std::string Date;     ///< on every page, "2026-11-21 10:05"
    std::vector<DocumentPart> Parts;
};

/// The table of a study, for reading: numbers as FigureText has them.
TablePart TableFrom(const StudyTable& table);

/// A picture as it is, apart from the box that shows it. A composed one is laid out anew when it is
/// printed; what a line printer wrote becomes its text instead.
DocumentPart PartFrom(const Picture& picture, const std::string& words, double shape);

}  // namespace quarnel02
