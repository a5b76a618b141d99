// sw-cli: the jobs of SW without a window, for scripts, batch systems and machines without a
// display. One subcommand per job family; readable text by default, one JSON object with
// --json; a one-line message and exit code 1 on bad input.
#include <CLI/CLI.hpp>

#include <iostream>

#include "frame/Laufzeitfehler.h"
#include "frame/OberflaecheTerminal.h"
#include "frame/Pfade.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"
#include "sieve/RasterTabellen.h"

int main(int argc, char** argv) {
    using namespace sw;
    CLI::App app{"sw-cli - SW, die Werkbank für experimentelle Zahlentheorie, im Terminal"};
    app.set_version_flag("--version", "sw-cli " + VersionText());
    app.require_subcommand(0, 1);
    bool ja = false;
    app.add_flag("--yes,-y", ja, "answer every question of the program with Yes");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e);
    }

    static OberflaecheTerminal terminal;
    terminal.JaSetzen(ja);
    OberflaecheSetzen(&terminal);
    OberflaecheTerminal::StrgCAbfangen();
    try {
        ProgrammPfad = ArbeitsOrdnerBestimmen();
        RasterTabellenAufbauen();
        if (app.get_subcommands().empty()) {
            std::cout << app.help();
            return 0;
        }
    } catch (const Laufzeitfehler& e) {
        std::cerr << "sw-cli: " << e.Beschreibung() << "\n";
        return 1;
    }
    return 0;
}
