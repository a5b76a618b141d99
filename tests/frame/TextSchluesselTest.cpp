// Every text key that the code asks for must have its text in data/sw.TEX, reachable by the
// lookup (numbers ascending: an entry behind a greater number is never found). The test reads
// the sources themselves, so a new Text(N) without its entry fails here, not in front of a user.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "TestUmgebung.h"
#include "frame/Texte.h"

namespace sw {
namespace {

namespace fs = std::filesystem;

const fs::path Quellen = fs::path(SW_DATA_DIR).parent_path();

std::string dateiInhalt(const fs::path& p) {
    std::ifstream f(p, std::ios::binary);
    std::stringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

// key -> the first file that uses it.
std::map<int, std::string> benutzteSchluessel() {
    static const std::regex aufruf(
        R"(\b(Text|TextP1|TextP1Zahl|TextP1P2|TextListe|MsgInfo|MsgInfoP1|MsgInfoP1P2|MsgFrage|MsgFehler)\s*\(\s*(\d+)\s*[,)])");
    // Keys kept in named constants ("constexpr int TextBlockNichtLesbar = 521;") count too.
    static const std::regex konstante(R"(\bconstexpr\s+int\s+Text\w*\s*=\s*(\d+)\s*;)");
    std::map<int, std::string> schluessel;
    for (const char* ordner : {"frame", "sieve", "views", "arith", "primality", "mersenne", "distribution",
                               "collatz", "windows", "cli"}) {
        fs::path o = Quellen / ordner;
        if (!fs::is_directory(o)) continue;
        for (const auto& e : fs::recursive_directory_iterator(o)) {
            std::string ext = e.path().extension().string();
            if (!e.is_regular_file() || (ext != ".cpp" && ext != ".h")) continue;
            std::string text = dateiInhalt(e.path());
            for (std::sregex_iterator m(text.begin(), text.end(), aufruf), ende; m != ende; ++m) {
                schluessel.emplace(std::stoi((*m)[2].str()), fs::relative(e.path(), Quellen).string());
            }
            for (std::sregex_iterator m(text.begin(), text.end(), konstante), ende; m != ende; ++m) {
                schluessel.emplace(std::stoi((*m)[1].str()), fs::relative(e.path(), Quellen).string());
            }
        }
    }
    return schluessel;
}

class TextSchluesselTest : public test::SwTest {
protected:
    void SetUp() override {
        SwTest::SetUp();
        fs::copy_file(Quellen / "data" / "sw.TEX", Ordner() + "sw.TEX");
    }
};

TEST_F(TextSchluesselTest, EveryKeyUsedInTheCodeHasAText) {
    std::map<int, std::string> schluessel = benutzteSchluessel();
    ASSERT_GT(schluessel.size(), 10u) << "the scan found the sources in " << Quellen;
    for (const auto& [key, datei] : schluessel) {
        EXPECT_FALSE(Text(key).empty()) << "text key " << key << " (used in " << datei << ") is missing in sw.TEX";
    }
}

// The known Mersenne prime exponents come from the text table: none may be missing, and the
// list must be ascending and without repeats for the searches over it.
TEST_F(TextSchluesselTest, TheMersenneListIsComplete) {
    std::vector<int32_t> exponenten = TextListe(999);
    ASSERT_GE(exponenten.size(), 52u);
    EXPECT_TRUE(std::is_sorted(exponenten.begin(), exponenten.end()));
    std::set<int32_t> bekannt(exponenten.begin(), exponenten.end());
    EXPECT_EQ(bekannt.size(), exponenten.size());
    for (int32_t p : {2, 3, 5, 7, 13, 17, 19, 31, 61, 89, 107, 127, 521, 607, 1279, 2203, 2281, 3217, 4253, 4423,
                      9689, 9941, 11213, 19937, 21701, 23209, 44497, 86243, 110503, 132049, 216091, 756839,
                      859433, 1257787, 1398269, 2976221, 3021377, 6972593, 13466917, 20996011, 24036583,
                      25964951, 30402457, 32582657, 37156667, 42643801, 43112609, 57885161, 74207281,
                      77232917, 82589933, 136279841}) {
        EXPECT_TRUE(bekannt.count(p)) << p;
    }
}

}  // namespace
}  // namespace sw
