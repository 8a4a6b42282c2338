// Build tool: makes a model database from SQL scripts, run one after the other.

#include <exception>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "basic/Files.h"
#include "basic/Version.h"
#include "files/ModelFile.h"

int main(int argc, char* argv[]) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() == 2 && std::string_view(arguments[1]) == "--version") {
        std::cout << "quarnel02-make-model " << quarnel02::Version() << '\n';
        return 0;
    }
    if (arguments.size() < 3) {
        std::cerr << "usage: quarnel02-make-model OUT SCRIPT.sql...\n";
        return 1;
    }
    try {
        std::string script;
        for (const char* name : arguments.subspan(2)) {
            script += quarnel02::ReadFile(name);
        }
        quarnel02::MakeModelFile(arguments[1], script);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
