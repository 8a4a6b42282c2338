#include "print/SaveDialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace quarnel02 {

namespace {

constexpr double kDouble = 2;
constexpr double kFourfold = 4;

QString FilterOf(const SavedKind& kind) {
    return QStringLiteral("%1 (*.%2)").arg(kind.Text, kind.Extension);
}

bool HasExtension(const SavedKind& kind, const QString& path) {
    return QFileInfo(path).suffix().compare(kind.Extension, Qt::CaseInsensitive) == 0;
}

}  // namespace

SavedKind PdfKind() {
    return {QStringLiteral("PDF document"), QStringLiteral("pdf")};
}

std::vector<SavedKind> DrawingKinds() {
    const QString png = QStringLiteral("png");
    return {{QStringLiteral("Drawing"), QStringLiteral("svg")},
            {QStringLiteral("Image, twice as large"), png, kDouble},
            {QStringLiteral("Image, four times as large"), png, kFourfold},
            {QStringLiteral("Image as on a screen"), png, 1},
            PdfKind()};
}

std::vector<SavedKind> TextKinds() {
    return {{QStringLiteral("Text"), QStringLiteral("txt")}, PdfKind()};
}

std::optional<SavedFile> AskSavedFile(QWidget* parent, const QString& title,
                                      const QString& directory, const QString& name,
                                      const std::vector<SavedKind>& kinds) {
    QFileDialog dialog(parent, title, directory);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    std::transform(kinds.begin(), kinds.end(), std::back_inserter(filters), FilterOf);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(kinds.front().Extension);
    const auto kind = [&](const QString& filter) {
        return kinds[static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter)))];
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(kind(filter).Extension);
    });
    dialog.selectFile(name);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    const QString path = dialog.selectedFiles().front();
    const SavedKind chosen = kind(dialog.selectedNameFilter());
    const auto typed = std::find_if(kinds.begin(), kinds.end(), [&](const SavedKind& each) {
        return HasExtension(each, path);
    });
    const bool other = !HasExtension(chosen, path) && typed != kinds.end();
    return SavedFile{path, other ? *typed : chosen};
}

QString FileNameOf(const QString& text) {
    static const QRegularExpression refused(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|]"));
    QString name = QString(text).replace(refused, QStringLiteral("_")).trimmed();
    while (name.startsWith(QLatin1Char('.'))) {
        name.remove(0, 1);
    }
    return name;
}

}  // namespace quarnel02
