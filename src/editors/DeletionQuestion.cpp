#include "editors/DeletionQuestion.h"

#include <QMessageBox>
#include <QPushButton>

#include "widgets/Dialogs.h"
#include "widgets/HeldKeys.h"

namespace quarnel02 {

namespace {

/// "1 row", "3 rows".
std::string Rows(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " row" : " rows");
}

/// Deleting a last task takes its rows along anyway.
bool IsTheSame(const DeletedRecord& record) {
    const DeletionEffect& effect = record.Effect;
    const bool tasks = record.Kind == RecordKind::Tasks;
    return effect.ChangeOwner == 0 && (tasks || effect.Lost == 0) &&
           (!record.IsOnly || effect.OwnRows == 0);
}

std::string WhatHappensAlone(const DeletedRecord& record) {
    const std::string noun(NameOf(record.Kind));
    const DeletionEffect& effect = record.Effect;
    if (effect.ChangeOwner + effect.Lost == 0) {
        return "Deleted alone, it leaves its matrix rows where they are.";
    }
    std::string text = "Deleted alone, it leaves the matrix rows under their numbers: " +
                       Rows(effect.ChangeOwner) + " will change owner to another " + noun;
    if (effect.Lost > 0) {
        text +=
            ", " + Rows(effect.Lost) +
            (record.Kind == RecordKind::Tasks ? " will be deleted" : " will belong to no " + noun);
    }
    return text + ".";
}

std::string Question(const DeletedRecord& record) {
    std::string text =
        "Delete " + record.Name + "? It has " +
        (record.Effect.OwnRows == 0 ? "no matrix rows"
                                    : Rows(record.Effect.OwnRows) + " in the matrix") +
        ".\n\n" + WhatHappensAlone(record);
    if (record.IsOnly) {
        text += "\n\nThe only " + std::string(NameOf(record.Kind)) +
                " is not removed but emptied, with number 1.";
    }
    return text;
}

}  // namespace

DeletionAnswer AskDeletion(QWidget* parent, const DeletedRecord& record) {
    if (IsTheSame(record)) {
        return DeletionAnswer::Alone;
    }
    const PlainPointer pointer;
    const HeldKeys keys;
    QMessageBox box(QMessageBox::Question, QString::fromLatin1(kApplicationTitle),
                    QString::fromStdString(Question(record)), QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    auto* with_rows =
        box.addButton(QStringLiteral("Delete &with its matrix rows"), QMessageBox::AcceptRole);
    auto* alone = box.addButton(QStringLiteral("Delete &alone"), QMessageBox::DestructiveRole);
    box.addButton(QMessageBox::Cancel);
    for (QAbstractButton* button : box.buttons()) {
        static_cast<QPushButton*>(button)->setAutoDefault(true);
    }
    box.setDefaultButton(with_rows);
    box.exec();
    if (box.clickedButton() == with_rows) {
        return DeletionAnswer::WithRows;
    }
    return box.clickedButton() == alone ? DeletionAnswer::Alone : DeletionAnswer::Cancel;
}

}  // namespace quarnel02
