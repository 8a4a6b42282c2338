#include "app/frmFile.h"

#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QStorageInfo>
#include <utility>

#include "app/QtPaths.h"
#include "editors/Dialogs.h"
#include "ui_frmFile.h"

namespace quarnel02 {

namespace {

const QString kUp = QStringLiteral("..");

/// Volumes that hold files of users: none of the system's own and none of memory.
QStringList Drives() {
    QStringList drives;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        const bool system =
            root.startsWith(QStringLiteral("/proc")) || root.startsWith(QStringLiteral("/sys")) ||
            root.startsWith(QStringLiteral("/dev")) || root.startsWith(QStringLiteral("/run/")) ||
            root.startsWith(QStringLiteral("/snap")) || root.startsWith(QStringLiteral("/boot"));
        if (volume.isValid() && !system && QFileInfo(root).isDir() && !drives.contains(root)) {
            drives.append(root);
        }
    }
    return drives;
}

QString DriveOf(const QString& directory) {
    return QStorageInfo(directory).rootPath();
}

bool IsReadable(const QString& directory) {
    const QFileInfo info(directory);
    return info.isDir() && info.isReadable() && info.isExecutable();
}

}  // namespace

frmFile::frmFile(std::filesystem::path applicationDirectory, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmFile>()),
      m_applicationDirectory(std::move(applicationDirectory)) {
    constexpr int columns = 70;
    constexpr int lines = 24;
    m_ui->setupUi(this);
    m_ui->Dir1->installEventFilter(this);
    ConnectControls();
    resize(columns * fontMetrics().averageCharWidth(), lines * fontMetrics().lineSpacing());
}

frmFile::~frmFile() = default;

void frmFile::ConnectControls() {
    connect(m_ui->Drive1, &QComboBox::activated, this, [this] { Drive1_Change(); });
    connect(m_ui->Dir1, &QListWidget::itemDoubleClicked, this, [this] { EnterDirectory(); });
    connect(m_ui->File1, &QListWidget::itemClicked, this, [this] { TakeFile(); });
    connect(m_ui->File1, &QListWidget::itemSelectionChanged, this, [this] { TakeFile(); });
    connect(m_ui->File1, &QListWidget::itemDoubleClicked, this, [this] {
        TakeFile();
        cmdOpen_Click();
    });
    m_ui->txtFile->setValidator(nullptr);  // a file's name may hold what no name in a model may
    connect(m_ui->txtFile, &FieldBox::Left, this, [this] { ApplyExtension(); });
    connect(m_ui->txtFile, &FieldBox::Entered, m_ui->cmdOpen, &QPushButton::click);
    connect(m_ui->cmdOpen, &QPushButton::clicked, this, [this] { cmdOpen_Click(); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmFile::reject);
}

void frmFile::SetForm(bool isOpen) {
    OpenMode = isOpen;
    setWindowTitle(isOpen ? QStringLiteral("Select a file to open...")
                          : QStringLiteral("Enter filename to save..."));
    m_ui->cmdOpen->setText(isOpen ? QStringLiteral("&Open") : QStringLiteral("&Save"));
    m_ui->txtFile->setText(isOpen ? QString() : QString::fromStdString(FileName));
    const QString wanted = QString::fromStdString(FilePath);
    if (!wanted.isEmpty() && IsReadable(wanted)) {
        SetDirectory(wanted);
    } else if (m_directory.isEmpty() || !IsReadable(m_directory)) {
        SetDirectory(QDir::currentPath());
    } else {
        SetDirectory(m_directory);
    }
    SelectDriveOf(m_directory);
}

void frmFile::ShowModal() {
    exec();
}

void frmFile::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    m_ui->txtFile->setFocus();
}

void frmFile::reject() {
    FileName.clear();
    FilePath.clear();
    QDialog::reject();
}

/// Enter in the list of directories goes there instead of pressing the default button.
bool frmFile::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->Dir1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            EnterDirectory();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmFile::SelectDriveOf(const QString& directory) {
    const QString drive = DriveOf(directory);
    m_ui->Drive1->clear();
    m_ui->Drive1->addItems(Drives());
    if (m_ui->Drive1->findText(drive) < 0) {
        m_ui->Drive1->addItem(drive);
    }
    m_ui->Drive1->setCurrentText(drive);
}

void frmFile::Drive1_Change() {
    const QString drive = m_ui->Drive1->currentText();
    if (IsReadable(drive)) {
        SetDirectory(drive);
        return;
    }
    ShowMessageBox(this, "Drive is currently unavailable.", MessageIcon::Critical);
    SelectDriveOf(ToQString(m_applicationDirectory));
}

void frmFile::SetDirectory(const QString& directory) {
    const QDir dir(directory);
    m_directory = dir.absolutePath();
    m_ui->Dir1->clear();
    if (!dir.isRoot()) {
        m_ui->Dir1->addItem(kUp);
    }
    m_ui->Dir1->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot,
                                       QDir::Name | QDir::IgnoreCase | QDir::LocaleAware));
    m_ui->Dir1->setCurrentRow(0);
    const QString native = QDir::toNativeSeparators(m_directory);
    m_ui->lblPath->setText(native);
    m_ui->lblPath->setToolTip(native);
    RefreshFiles();
}

/// Names that end in ".mdb" exactly: any other would get the extension once more when taken.
void frmFile::RefreshFiles() {
    m_ui->File1->clear();
    QDir dir(m_directory);
    m_ui->File1->addItems(dir.entryList({QStringLiteral("*.mdb")},
                                        QDir::Files | QDir::CaseSensitive,
                                        QDir::Name | QDir::IgnoreCase | QDir::LocaleAware));
}

void frmFile::EnterDirectory() {
    const QListWidgetItem* chosen = m_ui->Dir1->currentItem();
    if (chosen == nullptr) {
        return;
    }
    const QString left = chosen->text() == kUp ? QDir(m_directory).dirName() : QString();
    const QString target = QDir::cleanPath(QDir(m_directory).filePath(chosen->text()));
    if (!IsReadable(target)) {
        ShowMessageBox(this, NativeText(target) + " cannot be read. Choose another directory.",
                       MessageIcon::Critical);
        return;
    }
    SetDirectory(target);
    const auto came_from = m_ui->Dir1->findItems(left, Qt::MatchExactly);
    if (!left.isEmpty() && !came_from.isEmpty()) {
        m_ui->Dir1->setCurrentItem(came_from.front());
    }
}

QString frmFile::SelectedFile() const {
    const auto selected = m_ui->File1->selectedItems();
    return selected.isEmpty() ? QString() : selected.front()->text();
}

void frmFile::TakeFile() {
    if (!SelectedFile().isEmpty()) {
        m_ui->txtFile->setText(SelectedFile());
    }
}

void frmFile::ApplyExtension() {
    m_ui->txtFile->setText(
        QString::fromStdString(WithModelExtension(m_ui->txtFile->text().toStdString())));
}

/// A typed path stands for its directory and its name.
void frmFile::SplitTypedPath() {
    const QFileInfo typed(QDir(m_directory), QDir::fromNativeSeparators(m_ui->txtFile->text()));
    if (m_ui->txtFile->text().contains(QDir::separator()) && IsReadable(typed.path())) {
        const QString name = typed.fileName();
        SetDirectory(typed.path());
        SelectDriveOf(m_directory);
        m_ui->txtFile->setText(name);
    }
}

void frmFile::cmdOpen_Click() {
    ApplyExtension();
    SplitTypedPath();
    FilePath = NativeText(m_directory);
    FileName = m_ui->txtFile->text().toStdString();
    if (OpenMode ? MayOpen() : MaySave()) {
        accept();
    }
}

bool frmFile::NamesAFile() const {
    return !FileName.empty() && QFileInfo(QDir(m_directory), m_ui->txtFile->text()).isFile();
}

bool frmFile::MayOpen() {
    if (NamesAFile()) {
        return true;
    }
    ShowMessageBox(this, "Not a valid filename.  Please select from the list above.",
                   MessageIcon::None);
    m_ui->txtFile->setText(SelectedFile());
    return false;
}

bool frmFile::MaySave() {
    if (FileName.empty()) {
        m_ui->txtFile->setFocus();
        return false;
    }
    return !NamesAFile() || AskYesNoBox(this, "File already exists.  Overwrite?",
                                        MessageIcon::Information, Answer::No);
}

}  // namespace quarnel02
