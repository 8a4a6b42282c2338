// Makes a model of a given size with made-up figures, the same for the same seed.

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "basic/Files.h"
#include "basic/Version.h"
#include "files/ModelFile.h"
#include "generate_model.h"

namespace {

int Run(int argc, char* argv[]) {
    CLI::App app("Makes a model file with made-up figures, all pairs possible.",
                 "quarnel02-generate");
    app.set_version_flag("--version", std::string("quarnel02-generate ") + quarnel02::Version());
    std::string out;
    int tasks = 0;
    int resources = 0;
    std::uint32_t seed = 1;
    constexpr int most = 32767;
    app.add_option("OUT", out, "Model file to make")->required();
    app.add_option("--tasks", tasks, "Number of tasks")->required()->check(CLI::Range(1, most));
    app.add_option("--resources", resources, "Number of resources")
        ->required()
        ->check(CLI::Range(1, most));
    app.add_option("--seed", seed, "Seed of the figures");
    CLI11_PARSE(app, argc, argv);
    quarnel02::MakeModelFile(out, quarnel02::ReadFile(QUARNEL02_SCHEMA_FILE) +
                                      quarnel02::GeneratedModelScript(tasks, resources, seed));
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "quarnel02-generate: " << error.what() << '\n';
        return 1;
    }
}
