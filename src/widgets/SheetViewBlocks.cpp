// Blocks of cells between a sheet, the clipboard and the model.
#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
#include <exception>
#include <utility>

#include "basic/Limits.h"
#include "basic/NumberFormat.h"
#include "sheets/BlockShape.h"
#include "sheets/DelimitedText.h"
#include "widgets/Dialogs.h"
#include "widgets/SheetView.h"

namespace quarnel02 {

namespace {

/// Cells of the longest row, at least one.
std::size_t WidthOf(const TextBlock& block) {
    std::size_t width = 1;
    for (const auto& row : block) {
        width = std::max(width, row.size());
    }
    return width;
}

bool IsTooLarge(const std::string& text) {
    return text.size() > limits::kSheetFile || MostCellsIn(text) > limits::kCells;
}

}  // namespace

void SheetView::Copy() {
    const std::string text = WriteTabbed(m_sheet->CopyBlock(SelectedBlock()));
    if (!text.empty()) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }
}

void SheetView::Cut() {
    Copy();
    Store("Nothing was cut.", [this] { return m_sheet->ClearBlock("Cut", SelectedBlock()); });
}

void SheetView::Clear() {
    Store("Nothing was cleared.", [this] { return m_sheet->ClearBlock("Clear", SelectedBlock()); });
}

void SheetView::SelectBlock(const BlockEdit& edit) {
    const std::size_t columns = WidthOf(edit.Block);
    const auto at = [&](std::size_t row, std::size_t column) {
        return m_sheet->index(std::min(static_cast<int>(row), m_sheet->rowCount() - 1),
                              std::min(static_cast<int>(column), m_sheet->columnCount() - 1));
    };
    selectionModel()->select(
        QItemSelection(at(edit.Row, edit.Column),
                       at(edit.Row + edit.Block.size() - 1, edit.Column + columns - 1)),
        QItemSelectionModel::ClearAndSelect);
}

bool SheetView::MayGrow(const BlockEdit& edit) {
    const std::string missing = m_sheet->MissingFor(edit);
    return missing.empty() ||
           AskYesNoBox(this, "The block is larger than the sheet: add " + missing + "?",
                       MessageIcon::Question, Answer::Yes);
}

void SheetView::Paste() {
    const CellRange target = SelectedBlock();
    const std::string text = QGuiApplication::clipboard()->text().toStdString();
    if (IsTooLarge(text)) {
        ShowMessageBox(this,
                       "Nothing was pasted. The clipboard holds more than " +
                           Format(limits::kCells, "#,###") + " cells or " +
                           Format(limits::kSheetFile, "#,###") +
                           " bytes of text. Copy a smaller block.",
                       MessageIcon::Critical);
        return;
    }
    const TextBlock block = ReadTabbed(text);
    const BlockEdit edit{"Paste", target.Row, target.Column,
                         FittedTo(block, target.Rows, target.Columns)};
    if (!block.empty() && MayGrow(edit) &&
        Store("Nothing was pasted.", [&] { return m_sheet->SetBlock(edit); })) {
        SelectBlock(edit);
        TellOf(edit);
    }
}

void SheetView::TellOf(const BlockEdit& edit) {
    const int first = static_cast<int>(edit.Column);
    const int last = first + static_cast<int>(WidthOf(edit.Block)) - 1;
    emit StoredIn(first, std::min(last, m_sheet->columnCount() - 1));
}

/// A single row is filled from the one above it.
void SheetView::FillDown() {
    CellRange range = SelectedBlock();
    if (range.Rows == 1 && range.Row > 0) {
        --range.Row;
        ++range.Rows;
    }
    TextBlock block = FilledDown(m_sheet->CopyBlock(range));
    if (block.size() > 1) {
        block.erase(block.begin());
        Fill({"Fill", range.Row + 1, range.Column, std::move(block)});
    }
}

void SheetView::FillRight() {
    CellRange range = SelectedBlock();
    if (range.Columns == 1 && range.Column > 0) {
        --range.Column;
        ++range.Columns;
    }
    TextBlock block = FilledRight(m_sheet->CopyBlock(range));
    if (range.Columns > 1) {
        for (auto& row : block) {
            row.erase(row.begin());
        }
        Fill({"Fill", range.Row, range.Column + 1, std::move(block)});
    }
}

void SheetView::Fill(const BlockEdit& edit) {
    if (!edit.Block.empty() &&
        Store("Nothing was filled.", [&] { return m_sheet->SetBlock(edit); })) {
        TellOf(edit);
    }
}

/// What a single cell is refused for needs no opening.
bool SheetView::Store(const std::string& failure, const std::function<Misfits()>& store,
                      Refusal refusal) {
    std::string message;
    try {
        const Misfits refused = store();
        if (refused.IsEmpty()) {
            return true;
        }
        message = refused.Message(failure, failure.empty() ? "" : "\n");
    } catch (const std::exception& error) {
        message = error.what();
    }
    if (refusal == Refusal::Tell) {
        ShowMessageBox(this, message, MessageIcon::Critical);
    }
    return false;
}

}  // namespace quarnel02
