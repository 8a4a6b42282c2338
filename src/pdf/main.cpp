// quarnel02-report: quarnel02-solve with --pdf, for which that program starts this one.

#include <QGuiApplication>
#include <QLocale>
#include <clocale>
#include <iostream>
#include <string_view>

#include "basic/Files.h"
#include "basic/Version.h"
#include "batch/SolveProgram.h"
#include "print/PrintDocument.h"

namespace {

/// What the toolkit cannot do without ends the program; what else it misses nobody needs to know.
void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtFatalMsg || type == QtCriticalMsg) {
        std::cerr << "quarnel02-solve: " << text.toStdString() << '\n';
    }
}

/// Needs no screen. The toolkit wants a directory of the session; without one it would make one and
/// leave it.
std::string MakePdf(const quarnel02::Document& document) {
    const quarnel02::TemporaryDirectory session;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", quarnel02::PathText(session.Path()).c_str());
    }
    qInstallMessageHandler(TakeMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale::c());
    int count = 1;
    char name[] = "quarnel02-report";
    char* arguments[] = {name, nullptr};
    const QGuiApplication toolkit(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    return quarnel02::PdfOf(document);
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::cout << "quarnel02-report " << quarnel02::Version() << '\n';
        return 0;
    }
    return quarnel02::RunSolveProgram(argc, argv, MakePdf);
}
