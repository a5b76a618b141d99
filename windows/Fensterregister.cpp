#include "windows/Fensterregister.h"

#include <QWidget>

#include <map>

#include "frame/Meldungen.h"
#include "windows/frmAbstaendeGrafik.h"
#include "windows/frmCalculator.h"
#include "windows/frmCollatzBig.h"
#include "windows/frmCollatzFolgen.h"
#include "windows/frmCollatzGrafExtrem.h"
#include "windows/frmCollatzGRF.h"
#include "windows/frmCollatzNachkomma.h"
#include "windows/frmCollatzNachkommaSuche.h"
#include "windows/frmAnalyseMersenne.h"
#include "windows/frmAnalysePrimMersenne.h"
#include "windows/frmAnalyseSW.h"
#include "windows/frmAnzeige.h"
#include "windows/frmCollatzTab.h"
#include "windows/frmExtremSuche.h"
#include "windows/frmFaktor.h"
#include "windows/frmFaktorAnzeige.h"
#include "windows/frmGoldbachStd.h"
#include "windows/frmCount.h"
#include "windows/frmHash.h"
#include "windows/frmModuloBetrachtung.h"
#include "windows/frmPrimAbstandAb.h"
#include "windows/frmPrimModify.h"
#include "windows/frmLucasLehmer.h"
#include "windows/frmMersenneAnalyse.h"
#include "windows/frmMersenneStatus.h"
#include "windows/frmMersenneTeiler.h"
#include "windows/frmMersSystem.h"
#include "windows/frmMersTeilerSpez.h"
#include "windows/frmPalindrome.h"
#include "windows/frm2P_1.h"
#include "windows/frmPrimTestKpl.h"
#include "windows/frmPrimzahlTest.h"
#include "windows/frmQuadrat.h"
#include "windows/frmSpeicherAuslastung.h"
#include "windows/frmStatistikMersenne.h"
#include "windows/frmSucheZwillinge.h"
#include "windows/frmSync.h"
#include "windows/frmTeilerAnalyse.h"
#include "windows/frmULAM.h"
#include "windows/frmZufall.h"

namespace sw {

namespace {

template <typename W>
FensterFabrik modeless() {
    return [](int modus, QWidget*) {
        auto* w = new W();
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->ShowMe(modus);
    };
}

// A window that belongs to the cockpit: it stays above it and goes with it.
template <typename W>
FensterFabrik mitBesitzer() {
    return [](int modus, QWidget* cockpit) {
        auto* w = new W(cockpit);
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->ShowMe(modus);
    };
}

// A modal window blocks the input of all others while it stands; the caller goes on, as the
// window does its work in its own handlers.
template <typename W>
FensterFabrik modal() {
    return [](int modus, QWidget* cockpit) {
        auto* w = new W(cockpit);
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->setWindowModality(Qt::ApplicationModal);
        w->ShowMe(modus);
    };
}

std::map<QString, FensterFabrik>& fabriken() {
    static std::map<QString, FensterFabrik> liste{
        {"frmCalculator", [](int, QWidget* cockpit) { frmCalculator::Oeffnen(cockpit); }},
        {"frmAnalyseMersenne", modeless<frmAnalyseMersenne>()},
        {"frmAnalysePrimMersenne", modeless<frmAnalysePrimMersenne>()},
        {"frmAnalyseSW", modeless<frmAnalyseSW>()},
        {"frmAbstaendeGrafik", modeless<frmAbstaendeGrafik>()},
        {"frmAnzeige", modeless<frmAnzeige>()},
        {"frmCollatzBig", modeless<frmCollatzBig>()},
        {"frmCollatzFolgen", modeless<frmCollatzFolgen>()},
        {"frmCollatzGrafExtrem", modeless<frmCollatzGrafExtrem>()},
        {"frmCollatzGRF", modeless<frmCollatzGRF>()},
        {"frmCollatzNachkomma", modeless<frmCollatzNachkomma>()},
        {"frmCollatzNachkommaSuche", modeless<frmCollatzNachkommaSuche>()},
        {"frmCollatzTab", modeless<frmCollatzTab>()},
        {"frmExtremSuche", modeless<frmExtremSuche>()},
        {"frmFaktor", mitBesitzer<frmFaktor>()},
        {"frmFaktorAnzeige", modeless<frmFaktorAnzeige>()},
        {"frmGoldbachStd", modeless<frmGoldbachStd>()},
        {"frmHash", modeless<frmHash>()},
        {"frmCount", modeless<frmCount>()},
        {"frmModuloBetrachtung", modeless<frmModuloBetrachtung>()},
        {"frmPrimAbstandAb", modeless<frmPrimAbstandAb>()},
        {"frmLucasLehmer", modeless<frmLucasLehmer>()},
        {"frmMersenneAnalyse", modeless<frmMersenneAnalyse>()},
        // Owned by the divisor search that opens it: it reads the segment from its exponent.
        {"frmMersenneStatus", mitBesitzer<frmMersenneStatus>()},
        {"frmMersenneTeiler", modeless<frmMersenneTeiler>()},
        {"frmMersSystem", modeless<frmMersSystem>()},
        {"frmMersTeilerSpez", modeless<frmMersTeilerSpez>()},
        {"frmPalindrome", modeless<frmPalindrome>()},
        {"frm2P_1", modeless<frm2P_1>()},
        {"frmPrimModify", modal<frmPrimModify>()},
        {"frmPrimTestKpl", modeless<frmPrimTestKpl>()},
        {"frmPrimzahlTest", modeless<frmPrimzahlTest>()},
        {"frmQuadrat", modeless<frmQuadrat>()},
        {"frmSpeicherAuslastung", modeless<frmSpeicherAuslastung>()},
        {"frmStatistikMersenne", modeless<frmStatistikMersenne>()},
        {"frmSucheZwillinge", modeless<frmSucheZwillinge>()},
        {"frmSync", modal<frmSync>()},
        {"frmTeilerAnalyse", modeless<frmTeilerAnalyse>()},
        {"frmULAM", modeless<frmULAM>()},
        {"frmZufall", modal<frmZufall>()},
    };
    return liste;
}

const Untersuchung tabelle[UntersuchungAnzahl] = {
    {"frmAbstaendeGrafik", 0},     {"frmGoldbachStd", -1},     {"frmMersTeilerSpez", -1},
    {"frmZufall", -1},             {"frmAbstaendeGrafik", 1},  {"frmFaktor", -1},
    {"frm2P_1", -1},               {"frmAnalyseSW", 1},        {"frmLucasLehmer", -1},
    {"frmMersenneTeiler", -1},     {"frmModuloBetrachtung", -1}, {"frmPrimAbstandAb", -1},
    {"frmAnzeige", 6},             {"frmAnalyseSW", 0},        {"frmCalculator", -1},
    {"frmTeilerAnalyse", -1},      {"frmStatistikMersenne", -1}, {"frmCollatzNachkomma", -1},
    {"frmULAM", -1},               {"frmPrimTestKpl", -1},     {"frmCollatzGrafExtrem", -1},
    {"frmCollatzGRF", -1},         {"frmAnzeige", 0},          {"frmAnzeige", 1},
    {"frmAnzeige", 5},             {nullptr, -1},              {"frmMersSystem", -1},
    {"frmCollatzFolgen", -1},      {"frmCollatzBig", -1},      {"frmExtremSuche", -1},
    {"frmCount", -1},              {"frmSucheZwillinge", -1},  {"frmAnalyseMersenne", -1},
    {"frmPalindrome", -1},         {"frmAnalysePrimMersenne", -1}, {"frmHash", -1},
    {"frmQuadrat", -1},
};

}  // namespace

bool FensterVorhanden(const QString& name) { return fabriken().count(name) > 0; }

void FensterAnmelden(const QString& name, FensterFabrik fabrik) { fabriken()[name] = std::move(fabrik); }

bool FensterOeffnen(const QString& name, int modus, QWidget* cockpit) {
    auto it = fabriken().find(name);
    if (it == fabriken().end()) {
        MsgNichtImplementiert();
        return false;
    }
    it->second(modus, cockpit);
    return true;
}

const Untersuchung& UntersuchungVon(int index) {
    static const Untersuchung keine{"", -1};
    return index >= 0 && index < UntersuchungAnzahl ? tabelle[index] : keine;
}

}  // namespace sw
