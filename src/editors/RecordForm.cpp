#include "editors/RecordForm.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "basic/ScopeGuard.h"
#include "editors/SheetPanel.h"
#include "widgets/Dialogs.h"
#include "widgets/HeldKeys.h"

namespace quarnel02 {

RecordForm::RecordForm(MainForm& form, EditHistory& history, const NumberedTable& table,
                       QWidget* parent)
    : EditorDialog(form, history, parent),
      m_records(form, table),
      m_sheet(form, table.Kind, nullptr),
      m_kind(table.Kind),
      m_noun(QString::fromUtf8(NameOf(table.Kind))) {}

void RecordForm::Begin(const Controls& controls, RecordBoxes& boxes, std::vector<int> columns,
                       FieldBox& first) {
    m_controls = controls;
    m_boxes = &boxes;
    m_columns = std::move(columns);
    m_first = &first;
    m_saveCaption = controls.Save->text();
    ShowSaveButton(true);
    controls.Save->setMinimumWidth(controls.Save->sizeHint().width());
    const int character = fontMetrics().averageCharWidth();
    controls.GoTo->setMinimumWidth(20 * character);
    ConnectButtons();
    ConnectSheet();
    Show();
    if (m_records.Count() == 0) {
        controls.AddNew->setFocus();
    } else {
        first.setFocus();
    }
    controls.Record->installEventFilter(this);
}

void RecordForm::ConnectButtons() {
    const auto on = [this](const QPushButton* button, void (RecordForm::*command)()) {
        connect(button, &QPushButton::clicked, this, command);
    };
    const auto go = [this](const QPushButton* button, void (NumberedRecords::*step)()) {
        connect(button, &QPushButton::clicked, this, [this, step] { Go(step); });
    };
    go(m_controls.First, &NumberedRecords::First);
    go(m_controls.Previous, &NumberedRecords::Previous);
    go(m_controls.Next, &NumberedRecords::Next);
    go(m_controls.Last, &NumberedRecords::Last);
    on(m_controls.AddNew, &RecordForm::AddNew);
    on(m_controls.Delete, &RecordForm::Delete);
    connect(m_controls.Save, &QPushButton::clicked, this, [this] {
        FieldBox* box = BoxToTypeIn();
        if (m_controls.Sheet->Sheet().FinishEditing() && Save()) {
            SelectText(box);
        }
    });
    connect(m_controls.OK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_controls.GoTo, &FieldBox::Entered, this, &RecordForm::GoToTyped);
    connect(m_boxes, &RecordBoxes::Changed, this, [this] { ShowState(); });
}

void RecordForm::ConnectSheet() {
    SheetPanel& panel = *m_controls.Sheet;
    panel.Begin(m_sheet, m_noun);
    panel.Sheet().SetGuard([this] { return !IsUnsaved() || Save(); });
    constexpr int description = 1;
    panel.Sheet().setCurrentIndex(m_sheet.index(0, description));
    connect(&panel.Sheet(), &SheetView::CurrentRowChanged, this, &RecordForm::FollowSheet);
    connect(&m_sheet, &RecordSheet::Stored, this, &RecordForm::NoteStore);
    connect(&panel, &SheetPanel::Insert, this, &RecordForm::InsertAbove);
    connect(&panel, &SheetPanel::DeleteRows, this, &RecordForm::DeleteSelected);
    connect(&panel, &SheetPanel::Duplicate, this,
            [this] { ChangeSelected("Duplicate", "", DuplicateRecords); });
    connect(&panel, &SheetPanel::MoveUp, this,
            [this] { ChangeSelected("Move", " up", MoveRecordsUp); });
    connect(&panel, &SheetPanel::MoveDown, this,
            [this] { ChangeSelected("Move", " down", MoveRecordsDown); });
    auto* sides = new QShortcut(Qt::Key_F6, this);
    connect(sides, &QShortcut::activated, this, &RecordForm::SwitchSides);
}

/// As large as it likes to be as far as the screen allows, over the middle of the main window.
void RecordForm::FitIntoScreen() {
    constexpr double share = 0.92;
    const QRect screen_place = screen()->availableGeometry();
    const QSize room = (QSizeF(screen_place.size()) * share).toSize();
    resize(sizeHint().expandedTo(minimumSizeHint()).boundedTo(room));
    QRect place(QPoint(), size());
    place.moveCenter(parentWidget()->window()->frameGeometry().center());
    place.moveRight(std::min(place.right(), screen_place.right()));
    place.moveBottom(std::min(place.bottom(), screen_place.bottom()));
    move(std::max(place.left(), screen_place.left()), std::max(place.top(), screen_place.top()));
}

void RecordForm::showEvent(QShowEvent* event) {
    EditorDialog::showEvent(event);
    if (!m_placed) {
        m_placed = true;
        FitIntoScreen();
        m_controls.Sheet->Sheet().horizontalScrollBar()->setValue(0);
    }
}

/// Lines that a label of the record comes to need do not squeeze its boxes.
bool RecordForm::eventFilter(QObject* watched, QEvent* event) {
    const bool changes = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
    if (watched == m_controls.Record && changes) {
        QWidget& record = *m_controls.Record;
        const int width = std::max(record.width(), record.layout()->totalMinimumSize().width());
        record.setMinimumHeight(record.layout()->totalMinimumHeightForWidth(width));
    }
    return EditorDialog::eventFilter(watched, event);
}

/// The record, its buttons, and the sheet on its row. The handle keeps the store open meanwhile.
void RecordForm::Show(bool keepTyped) {
    const Database shared = Form().OpenWorkingCopy();
    const bool outer = std::exchange(m_showing, true);
    const ScopeGuard shown([&] { m_showing = outer; });
    m_sheet.Reload();
    ShowCurrent(keepTyped);
    const int row = m_records.Place() > 0 ? m_records.Place() - 1 : m_sheet.Records();
    m_controls.Sheet->Sheet().GoToRow(row);
}

void RecordForm::ShowCurrent(bool keepTyped) {
    const bool any = m_records.Place() > 0;
    m_boxes->Enable(any);
    ShowButtons();
    if (!any) {
        return;
    }
    std::vector<std::string> texts;
    for (const int column : m_columns) {
        texts.push_back(m_records.Text(column));
    }
    if (keepTyped) {
        m_boxes->ShowBehind(texts);
    } else {
        m_boxes->Show(texts);
    }
}

void RecordForm::ShowButtons() {
    const int place = m_records.Place();
    const int count = m_records.Count();
    m_controls.First->setEnabled(count > 0 && place != 1);
    m_controls.Previous->setEnabled(count > 0 && place != 1);
    m_controls.Next->setEnabled(place > 0 && place < count);
    m_controls.Last->setEnabled(place < count);
    m_controls.GoTo->setEnabled(count > 0);
    m_controls.Save->setEnabled(place > 0);
    m_controls.Delete->setEnabled(place > 0);
}

/// Undo and redo leave alone what is being typed into the record.
void RecordForm::ShowAgain() {
    const int place = m_records.Place();
    const bool in_sheet = m_controls.Sheet->isAncestorOf(focusWidget());
    if (place > 0 || !in_sheet) {
        m_records.StayInside();
    }
    Show(place == m_records.Place());
}

void RecordForm::ShowSaveButton(bool unsaved) {
    QFont face = m_controls.Save->font();
    face.setBold(unsaved);
    m_controls.Save->setFont(face);
    m_controls.Save->setText(unsaved ? m_saveCaption + QStringLiteral(" *") : m_saveCaption);
}

QString RecordForm::PlaceText() const {
    if (m_records.Count() == 0) {
        return QStringLiteral("There is no %1 yet. Press Add New.").arg(m_noun);
    }
    if (m_records.Place() == 0) {
        return QStringLiteral("A new %1: type it into the sheet, or press Add New.").arg(m_noun);
    }
    QString noun = m_noun;
    noun[0] = noun[0].toUpper();
    return QStringLiteral("%1 %2 of %3.").arg(noun).arg(m_records.Place()).arg(m_records.Count());
}

void RecordForm::ShowState() {
    const bool unsaved = IsUnsaved();
    ShowSaveButton(unsaved);
    m_controls.Info->setText(
        unsaved ? PlaceText() + QStringLiteral(" Not saved yet: Save, moving on or OK stores it, "
                                               "Escape takes it back.")
                : PlaceText());
}

/// The box of the record that has the focus, or else the first; none while the focus is at the
/// sheet.
FieldBox* RecordForm::BoxToTypeIn() const {
    if (m_controls.Sheet->isAncestorOf(focusWidget())) {
        return nullptr;
    }
    auto* box = qobject_cast<FieldBox*>(focusWidget());
    return m_boxes->Has(box) ? box : m_first;
}

void RecordForm::SelectText(FieldBox* box) {
    if (box != nullptr) {
        box->setFocus(Qt::OtherFocusReason);
        box->selectAll();
    }
}

/// Stores what is being typed, into a cell or the record. False when that failed; the user has then
/// been told, and everything is as it was.
bool RecordForm::Settle() {
    return m_controls.Sheet->Sheet().FinishEditing() && (!IsUnsaved() || Save());
}

void RecordForm::Run(const std::function<void()>& command) {
    FieldBox* box = BoxToTypeIn();
    if (Settle()) {
        RunEvent([&] {
            command();
            Show();
            SelectText(box);
        });
    }
}

void RecordForm::Go(void (NumberedRecords::*step)()) {
    Run([&] { (m_records.*step)(); });
}

void RecordForm::GoToTyped() {
    if (!Settle()) {
        return;
    }
    RunEvent([&] {
        const std::string typed = m_controls.GoTo->text().toStdString();
        m_controls.GoTo->selectAll();
        if (const int place = m_records.Find(typed)) {
            m_records.GoTo(place);
            Show();
            SelectText(m_first);
        } else {
            ShowMessageBox(
                this,
                "No " + m_noun.toStdString() + " has the number or the name \"" + typed + "\".",
                MessageIcon::Information);
        }
    });
}

void RecordForm::AddNew() {
    if (!Settle()) {
        return;
    }
    RunEvent([&] {
        m_records.AddNew();
        History().Note("Add " + m_noun.toStdString() + " " + std::to_string(m_records.Place()));
        Show();
        SelectText(m_first);
    });
}

bool RecordForm::Save() {
    const bool saved = RunEvent([&] {
        m_records.Save(Values());
        History().Note("Edit " + m_noun.toStdString() + " " + std::to_string(m_records.Place()));
        Show();
    });
    if (!saved) {
        m_boxes->FocusRefused();
    }
    return saved;
}

void RecordForm::TakeBack() {
    RunEvent([&] {
        FieldBox* box = BoxToTypeIn();
        Show();
        SelectText(box);
    });
}

void RecordForm::keyPressEvent(QKeyEvent* event) {
    const bool escape = event->key() == Qt::Key_Escape && !IsRepeated(*event);
    SheetView& sheet = m_controls.Sheet->Sheet();
    if (escape && sheet.IsEditing()) {
        sheet.CancelEditing();
    } else if (escape && IsUnsaved()) {
        TakeBack();
    } else {
        EditorDialog::keyPressEvent(event);
    }
}

void RecordForm::SwitchSides() {
    SheetView& sheet = m_controls.Sheet->Sheet();
    if (!m_controls.Sheet->isAncestorOf(focusWidget())) {
        sheet.setFocus(Qt::OtherFocusReason);
    } else if (sheet.FinishEditing()) {
        FieldBox* box = m_first->isEnabled() ? m_first : nullptr;
        SelectText(box);
        if (box == nullptr) {
            m_controls.AddNew->setFocus(Qt::OtherFocusReason);
        }
    }
}

void RecordForm::done(int result) {
    if (Settle()) {
        EditorDialog::done(result);
    }
}

}  // namespace quarnel02
