#pragma once

#include <QWidget>
#include <string>

#include "sheets/RecordOrder.h"

namespace quarnel02 {

/// A record that is to be deleted.
struct DeletedRecord {
    RecordKind Kind;
    std::string Name;  ///< "task 5 (Mount impeller)"
    bool IsOnly;       ///< and so is emptied instead
    DeletionEffect Effect;
};

enum class DeletionAnswer { Cancel, WithRows, Alone };

/// Says what deleting the record alone does to the matrix and asks what is to be deleted;
/// "Delete with its matrix rows" has the focus. Where both come to the same it does not ask, and
/// the answer is Alone.
DeletionAnswer AskDeletion(QWidget* parent, const DeletedRecord& record);

}  // namespace quarnel02
