// sw-cli: the jobs of SW without a window, for scripts, batch systems and machines without a
// display. One subcommand per job family; readable text by default, one JSON object with
// --json; a one-line message and exit code 1 on bad input (with --json also {"error": ...}); Ctrl-C stops the job and keeps
// what was printed.
#include <CLI/CLI.hpp>

#include <cstdio>
#include <functional>
#include <iostream>
#include <string_view>

#include "Befehle.h"
#include "CliUmgebung.h"
#include "MpiVerteilung.h"
#include "frame/Laufzeitfehler.h"
#include "frame/Programm.h"
#include "frame/Texte.h"
#include "frame/basZentral.h"

int main(int argc, char** argv) {
    using namespace sw;
    using namespace sw::cli;
    // In an MPI job every process runs this main; process 0 speaks, the others help with the
    // range commands (MpiVerteilung.h).
    MpiSitzung mpi(argc, argv);
    CLI::App app{"sw-cli - SW, die Werkbank für experimentelle Zahlentheorie, im Terminal"};
    app.set_version_flag("--version", "sw-cli " + VersionText());
    app.require_subcommand(0, 1);
    bool ja = false;
    app.add_flag("--yes,-y", ja, "answer every question of the program with Yes");
    std::function<void()> auftrag;
    SiebBefehlAnmelden(app, auftrag);
    AbfrageBefehleAnmelden(app, auftrag);
    FaktorBefehlAnmelden(app, auftrag);
    AnalyseBefehleAnmelden(app, auftrag);
    EvalBefehlAnmelden(app, auftrag);
    TestBefehlAnmelden(app, auftrag);
    CollatzBaumBefehlAnmelden(app, auftrag);
    CollatzFamilieBefehlAnmelden(app, auftrag);
    SekundaerBefehleAnmelden(app, auftrag);
    AbstandBefehlAnmelden(app, auftrag);
    TertiaerBefehlAnmelden(app, auftrag);
    LucasBefehlAnmelden(app, auftrag);
    CollatzBefehleAnmelden(app, auftrag);
    CollatzKommaBefehleAnmelden(app, auftrag);
    TeilerBefehlAnmelden(app, auftrag);
    MersSystemBefehlAnmelden(app, auftrag);
    TeilerAnalyseBefehlAnmelden(app, auftrag);
    DbBefehlAnmelden(app, auftrag);
    ArbeitBefehleAnmelden(app, auftrag);
    UlamBefehlAnmelden(app, auftrag);
    HashBefehlAnmelden(app, auftrag);
    GoldbachBefehlAnmelden(app, auftrag);
    RestklassenBefehlAnmelden(app, auftrag);
    LueckenAbBefehlAnmelden(app, auftrag);
    QuadratBefehlAnmelden(app, auftrag);
    PalindromBefehlAnmelden(app, auftrag);

    // With --json a refusal is a JSON object on stdout as well, so that a script reading
    // stdout sees why there is no answer; the line on stderr stays for the person watching.
    bool json = false;
    for (int i = 1; i < argc; ++i) json = json || std::string_view(argv[i]) == "--json";
    auto fehler = [json](const std::string& text) {
        Terminal().FortschrittBeenden();
        // Before a piece job all processes meet the same refusal and process 0 tells it; inside
        // one, the failing process tells it and the job ends with it.
        if (NebenRang() && !MpiVerteiltLaeuft()) return 1;
        if (json) {
            JsonObjekt j;
            std::printf("%s\n", j.Text("error", text).Ende().c_str());
        }
        std::fflush(stdout);
        std::cerr << "sw-cli: " << text << std::endl;
        if (MpiVerteiltLaeuft()) MpiJobAbbrechen(1);
        return 1;
    };
    try {
        // The program is ready before the command line is read, so that a command runs the
        // same whether it works in its parse callback or after the parse; --yes is known only
        // afterwards, and is set before the chosen command's work runs.
        OberflaecheSetzen(&Terminal());
        OberflaecheTerminal::StrgCAbfangen();
        ProgrammStarten(false);  // keeps the shell's folder: relative paths mean what was typed
        app.parse(argc, argv);
        if (!auftrag) {
            if (app.get_subcommands().empty()) std::cout << app.help();
            return 0;
        }
        if (NebenRang() && !MpiBefehl(app.get_subcommands().front()->get_name())) return 0;
        Terminal().JaSetzen(ja);
        auftrag();
        Terminal().FortschrittBeenden();
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForVersion& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        return fehler(e.what());
    } catch (const CliFehler& e) {
        return fehler(e.what());
    } catch (const Laufzeitfehler& e) {
        return fehler(e.Beschreibung());
    } catch (const Abgebrochen&) {
        fehler("stopped by Ctrl-C");
        return 130;
    } catch (const std::bad_alloc&) {
        return fehler("not enough memory");
    }
    return 0;
}
