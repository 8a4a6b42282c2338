#include "app/frmFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <utility>

#include "app/ApplicationDirectory.h"
#include "app/QtPaths.h"
#include "app/UserVolumes.h"
#include "basic/RunTimeError.h"
#include "commands/ModelPath.h"
#include "commands/RecentFiles.h"
#include "ui_frmFile.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

namespace {

const QString kUp = QStringLiteral("..");

/// What Save As offers, in the order of ModelFormat.
const QStringList kFormats = {QStringLiteral("Model (*.mdb)"),
                              QStringLiteral("Access database (*.mdb)")};

bool IsReadable(const QString& directory) {
    const QFileInfo info(directory);
    return info.isDir() && info.isReadable() && info.isExecutable();
}

/// Names of a directory, hidden ones behind the others.
QStringList Names(const QDir& directory, QDir::Filters filters, const QStringList& patterns = {}) {
    const QDir::SortFlags order = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;
    QStringList names = directory.entryList(patterns, filters, order);
    for (const QString& name : directory.entryList(patterns, filters | QDir::Hidden, order)) {
        if (!names.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

bool IsEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

frmFile::frmFile(std::filesystem::path applicationDirectory, QWidget* parent)
    : frmFile(std::move(applicationDirectory),
              ExamplesDirectory(ToPath(QCoreApplication::applicationDirPath())), parent) {}

frmFile::frmFile(std::filesystem::path applicationDirectory, std::filesystem::path examples,
                 QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmFile>()),
      m_applicationDirectory(std::move(applicationDirectory)),
      m_examples(std::move(examples)) {
    constexpr int columns = 70;
    constexpr int lines = 24;
    m_ui->setupUi(this);
    m_ui->cboFormat->addItems(kFormats);
    AlignBoxes();
    m_ui->Dir1->installEventFilter(this);
    m_ui->txtFile->installEventFilter(this);
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
    ShowFormat();
    SetDirectory(FirstDirectory());
    SelectDriveOf(m_directory);
}

/// A file that is opened says itself what it is.
void frmFile::ShowFormat() {
    m_ui->cboFormat->setCurrentIndex(static_cast<int>(Format));
    m_ui->cboFormat->setVisible(!OpenMode);
    m_ui->label_cboFormat->setVisible(!OpenMode);
}

/// Drive, name and type begin on one line.
void frmFile::AlignBoxes() {
    const auto labels = {m_ui->label_Drive1, m_ui->Label1, m_ui->label_cboFormat};
    int widest = 0;
    for (const QLabel* label : labels) {
        widest = std::max(widest, label->sizeHint().width());
    }
    for (QLabel* label : labels) {
        label->setMinimumWidth(widest);
    }
}

/// Where the caller wants it, else where the user last was, now or in an earlier session, else
/// where there are models to look at.
QString frmFile::FirstDirectory() const {
    QStringList wanted = {QString::fromStdString(FilePath), m_directory};
    for (const std::string& entry : LastUsed()) {
        wanted.append(QString::fromStdString(DirectoryPart(entry)));
    }
    wanted.append(ToQString(m_examples));
    for (const QString& directory : wanted) {
        if (!directory.isEmpty() && IsReadable(directory)) {
            return directory;
        }
    }
    return QDir::currentPath();
}

std::vector<std::string> frmFile::LastUsed() const {
    try {
        return RecentFiles(m_applicationDirectory / "Marrowgate.cfg").Entries();
    } catch (const RunTimeError&) {
        return {};
    }
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

/// Enter in the list of directories goes there, and in the name it acts as the button, once; both
/// use the key up.
bool frmFile::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_ui->Dir1 && IsEnter(*event)) {
        EnterDirectory();
        return true;
    }
    if (watched == m_ui->txtFile && IsEnter(*event)) {
        cmdOpen_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmFile::SelectDriveOf(const QString& directory) {
    const QString drive = VolumeOf(directory);
    m_ui->Drive1->clear();
    m_ui->Drive1->addItems(MountedUserVolumes());
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
    m_ui->Dir1->addItems(Names(dir, QDir::Dirs | QDir::NoDotAndDotDot));
    m_ui->Dir1->setCurrentRow(0);
    const QString native = QDir::toNativeSeparators(m_directory);
    m_ui->lblPath->setText(native);
    m_ui->lblPath->setToolTip(native);
    RefreshFiles();
}

/// Names that end so exactly: any other would get the extension once more when taken.
void frmFile::RefreshFiles() {
    QStringList patterns = {QStringLiteral("*.mdb")};
    if (OpenMode) {
        patterns.append(QStringLiteral("*.accdb"));
    }
    m_ui->File1->clear();
    m_ui->File1->addItems(Names(QDir(m_directory), QDir::Files | QDir::CaseSensitive, patterns));
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
    SelectDriveOf(m_directory);
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
    const std::string name = m_ui->txtFile->text().toStdString();
    m_ui->txtFile->setText(
        QString::fromStdString(OpenMode ? WithOpenedExtension(name) : WithModelExtension(name)));
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
    Format = static_cast<ModelFormat>(m_ui->cboFormat->currentIndex());
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
    const std::string objection = FileNameObjection(FilePath, FileName);
    if (!objection.empty()) {
        ShowMessageBox(this, objection, MessageIcon::Critical);
        m_ui->txtFile->setFocus();
        m_ui->txtFile->selectAll();
        return false;
    }
    return !NamesAFile() || AskYesNoBox(this, "File already exists.  Overwrite?",
                                        MessageIcon::Information, Answer::No);
}

}  // namespace quarnel02
