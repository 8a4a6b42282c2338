#include "editors/RecordForm.h"

#include <QLabel>
#include <QPushButton>
#include <utility>

namespace quarnel02 {

RecordForm::RecordForm(MainForm& form, EditHistory& history, NumberedTable table, const char* noun,
                       QWidget* parent)
    : EditorDialog(form, history, parent),
      m_records(form, std::move(table)),
      m_noun(QString::fromLatin1(noun)) {}

void RecordForm::Begin(const Buttons& buttons, RecordBoxes& boxes, std::vector<int> columns,
                       FieldBox& first, QLabel& info) {
    m_buttons = buttons;
    m_boxes = &boxes;
    m_columns = std::move(columns);
    m_first = &first;
    m_info = &info;
    m_saveCaption = buttons.Save->text();
    ShowSaveButton(true);
    buttons.Save->setMinimumWidth(buttons.Save->sizeHint().width());
    connect(buttons.Previous, &QPushButton::clicked, this,
            [this] { Go(&NumberedRecords::Previous); });
    connect(buttons.Next, &QPushButton::clicked, this, [this] { Go(&NumberedRecords::Next); });
    connect(buttons.AddNew, &QPushButton::clicked, this, [this] { AddNew(); });
    connect(buttons.Save, &QPushButton::clicked, this, [this] { Save(); });
    connect(buttons.Delete, &QPushButton::clicked, this, [this] { Delete(); });
    connect(buttons.OK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_boxes, &RecordBoxes::Changed, this, [this] { ShowState(); });
    ShowCurrent();
    if (m_records.Count() == 0) {
        buttons.AddNew->setFocus();
    } else {
        first.setFocus();
    }
}

void RecordForm::ShowCurrent() {
    const bool any = m_records.Count() > 0;
    m_boxes->Enable(any);
    for (QPushButton* button :
         {m_buttons.Previous, m_buttons.Next, m_buttons.Save, m_buttons.Delete}) {
        button->setEnabled(any);
    }
    if (any) {
        std::vector<std::string> texts;
        for (const int column : m_columns) {
            texts.push_back(m_records.Text(column));
        }
        m_boxes->Show(texts);
    }
}

void RecordForm::ShowAgain() {
    m_records.StayInside();
    ShowCurrent();
}

void RecordForm::ShowSaveButton(bool unsaved) {
    QFont face = m_buttons.Save->font();
    face.setBold(unsaved);
    m_buttons.Save->setFont(face);
    m_buttons.Save->setText(unsaved ? m_saveCaption + QStringLiteral(" *") : m_saveCaption);
}

void RecordForm::ShowState() {
    const bool any = m_records.Count() > 0;
    const bool unsaved = IsUnsaved();
    ShowSaveButton(unsaved);
    if (!any) {
        m_info->setText(QStringLiteral("There is no %1 yet. Press Add New.").arg(m_noun));
        return;
    }
    QString noun = m_noun;
    noun[0] = noun[0].toUpper();
    const QString place =
        QStringLiteral("%1 %2 of %3.").arg(noun).arg(m_records.Place()).arg(m_records.Count());
    m_info->setText(
        unsaved ? place + QStringLiteral(" Not saved yet: moving on or closing drops the changes.")
                : place);
}

/// In the box that has the focus, or else in the first.
void RecordForm::SelectText() {
    auto* box = qobject_cast<FieldBox*>(focusWidget());
    if (box == nullptr) {
        box = m_first;
        box->setFocus(Qt::OtherFocusReason);
    }
    box->selectAll();
}

void RecordForm::Go(void (NumberedRecords::*step)()) {
    RunEvent([&] {
        (m_records.*step)();
        ShowCurrent();
        SelectText();
    });
}

void RecordForm::AddNew() {
    RunEvent([&] {
        m_records.AddNew();
        ShowCurrent();
        m_first->setFocus(Qt::OtherFocusReason);
        m_first->selectAll();
    });
}

void RecordForm::Save() {
    const bool saved = RunEvent([&] {
        m_records.Save(Values());
        ShowCurrent();
        SelectText();
    });
    if (!saved) {
        m_boxes->FocusRefused();
    }
}

void RecordForm::Delete() {
    RunEvent([&] {
        DeleteCurrent();
        ShowCurrent();
        SelectText();
    });
}

}  // namespace quarnel02
