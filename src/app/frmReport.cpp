#include "app/frmReport.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QTextDocument>
#include <algorithm>
#include <exception>
#include <utility>

#include "app/QtPaths.h"
#include "app/WindowMemory.h"
#include "print/ClipboardPicture.h"
#include "print/PrintDocument.h"
#include "print/PrintPreview.h"
#include "print/SaveDialog.h"
#include "ui_frmReport.h"
#include "widgets/Dialogs.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

constexpr double kShareOfScreen = 0.85;  ///< at most; the title bar needs room as well

/// Black on amber, and on a stronger one where the search stands: legible in every theme.
QTextEdit::ExtraSelection Marked(const QTextCursor& place, bool current) {
    constexpr QColor amber(255, 224, 130);
    constexpr QColor strong(255, 160, 0);
    QTextEdit::ExtraSelection mark;
    mark.cursor = place;
    mark.format.setBackground(current ? strong : amber);
    mark.format.setForeground(Qt::black);
    return mark;
}

Document DocumentOf(const QString& file, const QString& text) {
    const QFileInfo info(file);
    return {info.fileName().toStdString(),
            "",
            info.lastModified().toString(QStringLiteral("yyyy-MM-dd hh:mm")).toStdString(),
            {PrintedPart{text.toStdString() + "\n"}}};
}

}  // namespace

frmReport::frmReport(QWidget* parent, QString file, WindowMemory* memory)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmReport>()),
      m_file(std::move(file)),
      m_memory(memory) {
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QFileInfo(m_file).fileName());
    ChooseSize();
    ConnectFind();
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, &frmReport::Copy);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmReport::Save);
    connect(m_ui->cmdPrint, &QPushButton::clicked, this, &frmReport::Print);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::close);
    new QShortcut(QKeySequence::Save, this, this, &frmReport::Save);
    new QShortcut(QKeySequence::Print, this, this, &frmReport::Print);
    Reload();
    m_ui->txtReport->setFocus();
}

frmReport::~frmReport() = default;

void frmReport::ChooseSize() {
    constexpr int columns = 84;
    constexpr int lines = 30;
    const QFont font = FixedPitchFont();
    m_ui->txtReport->setFont(font);
    const QFontMetrics metrics(font);
    const QSize wanted(columns * metrics.horizontalAdvance(QLatin1Char('0')),
                       lines * metrics.lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * kShareOfScreen));
}

void frmReport::ConnectFind() {
    m_ui->txtFind->installEventFilter(this);
    connect(m_ui->txtFind, &QLineEdit::textChanged, this, &frmReport::Find);
    connect(m_ui->cmdNext, &QPushButton::clicked, this, [this] { Go(1); });
    connect(m_ui->cmdPrevious, &QPushButton::clicked, this, [this] { Go(-1); });
    new QShortcut(QKeySequence::Find, this, this, [this] {
        m_ui->txtFind->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtFind->selectAll();
    });
    new QShortcut(Qt::Key_F3, this, this, [this] { Go(1); });
    new QShortcut(Qt::SHIFT | Qt::Key_F3, this, this, [this] { Go(-1); });
}

/// Enter in the search box goes on; it does not press Close.
bool frmReport::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->txtFind && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            Go((key.modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Begins at the first place behind the top of what is shown.
void frmReport::Find() {
    m_found.clear();
    m_current = -1;
    const QString wanted = m_ui->txtFind->text();
    const QTextDocument& document = *m_ui->txtReport->document();
    const int from = m_ui->txtReport->textCursor().selectionStart();
    QTextCursor place(m_ui->txtReport->document());
    while (!wanted.isEmpty() && !(place = document.find(wanted, place)).isNull()) {
        if (m_current < 0 && place.selectionStart() >= from) {
            m_current = m_found.size();
        }
        m_found << place;
    }
    m_current = m_found.isEmpty() ? -1 : std::max<qsizetype>(m_current, 0);
    ShowFound();
}

/// From the last place on to the first one.
void frmReport::Go(int steps) {
    if (!m_found.isEmpty()) {
        m_current = (m_current + steps + m_found.size()) % m_found.size();
    }
    ShowFound();
}

void frmReport::ShowFound() {
    QList<QTextEdit::ExtraSelection> marks;
    for (qsizetype i = 0; i < m_found.size(); ++i) {
        marks << Marked(m_found[i], i == m_current);
    }
    m_ui->txtReport->setExtraSelections(marks);
    const bool asked = !m_ui->txtFind->text().isEmpty();
    m_ui->cmdNext->setEnabled(!m_found.isEmpty());
    m_ui->cmdPrevious->setEnabled(!m_found.isEmpty());
    if (m_found.isEmpty()) {
        m_ui->lblFound->setText(asked ? QStringLiteral("Not found") : QString());
        return;
    }
    m_ui->lblFound->setText(QStringLiteral("%1 of %2").arg(m_current + 1).arg(m_found.size()));
    QTextCursor cursor(m_ui->txtReport->document());
    cursor.setPosition(m_found[m_current].selectionStart());
    m_ui->txtReport->setTextCursor(cursor);
    m_ui->txtReport->ensureCursorVisible();
}

void frmReport::Copy() {
    if (m_ui->txtReport->textCursor().hasSelection()) {
        m_ui->txtReport->copy();
    } else {
        CopyText(m_ui->txtReport->toPlainText());
    }
}

void frmReport::Save() {
    const auto saved = AskSavedFile(this, QStringLiteral("Save report as"), LastDirectory(m_memory),
                                    QFileInfo(m_file).completeBaseName(), TextKinds());
    if (!saved) {
        return;
    }
    if (m_memory != nullptr) {
        m_memory->Keep(WindowMemory::kLastDirectory, QFileInfo(saved->Path).path());
    }
    const QString text = m_ui->txtReport->toPlainText();
    try {
        WriteWhole(ToPath(saved->Path), saved->Kind.Extension == QLatin1String("pdf")
                                            ? PdfOf(DocumentOf(m_file, text))
                                            : text.toStdString());
    } catch (const std::exception& error) {
        ShowMessageBox(this, error.what(), MessageIcon::Critical);
    }
}

void frmReport::Print() {
    ShowPrintPreview(this, DocumentOf(m_file, m_ui->txtReport->toPlainText()));
}

void frmReport::Reload() {
    QFile text(m_file);
    const bool read = text.open(QIODevice::ReadOnly);
    m_ui->txtReport->setPlainText(
        read ? QString::fromUtf8(text.readAll())
             : QStringLiteral("%1 cannot be read: %2").arg(m_file, text.errorString()));
    for (QPushButton* button : {m_ui->cmdCopy, m_ui->cmdSave, m_ui->cmdPrint}) {
        button->setEnabled(read);
    }
    Find();
}

void ShowReport(QWidget* parent, const QString& file, WindowMemory* memory) {
    frmReport* viewer = nullptr;
    for (frmReport* each : parent->findChildren<frmReport*>()) {
        if (each->File() == file) {
            viewer = each;
            viewer->Reload();
        }
    }
    if (viewer == nullptr) {
        viewer = new frmReport(parent, file, memory);
    }
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
}

}  // namespace quarnel02
