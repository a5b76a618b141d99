// sw-cli ulam and hash as a user runs them: the published counts, the files they write, and
// the one-line refusals of input that cannot be drawn or hashed.
#include <fstream>
#include <sstream>

#include "CliBasis.h"

namespace sw::test {
namespace {

class UlamHashCli : public CliBasis {};

std::string Datei(const std::string& pfad) {
    std::ifstream f(pfad, std::ios::binary);
    std::ostringstream s;
    s << f.rdbuf();
    return s.str();
}

TEST_F(UlamHashCli, UlamCountsAndFiles) {
    Lauf l = Starten("ulam --centre 1 --cells 201 201 --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"last\":40401,"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("\"prime_cells\":4236,"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("\"share\":\"10.5 %\""), std::string::npos) << l.aus;

    l = Starten("ulam --wheel --cells 201 201 --png '" + Ordner() + "spirale.png' --zoom 2 --csv '" + Ordner() + "zellen.csv'");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus, "last: 151501, cells: 40401, prime cells: 13973 (34.6 %)\n");
    const std::string png = Datei(Ordner() + "spirale.png");
    ASSERT_GT(png.size(), 402u * 402u * 3u);
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1a\n");
    const std::string csv = Datei(Ordner() + "zellen.csv");
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 40402);
    EXPECT_NE(csv.find("\n100;100;1;quadrat\n"), std::string::npos);
    EXPECT_NE(csv.find(";151501;"), std::string::npos);

    Abgelehnt("ulam --centre -5", "negativ");
    Abgelehnt("ulam --step -1", "negativ");
    Abgelehnt("ulam --centre 18446744073709551615", "2^63");
    Abgelehnt("ulam --centre 9223372036854775807 --step 4611686018427387904", "2^64");
}

TEST_F(UlamHashCli, HashCountsAndRefusals) {
    const Lauf l = Starten("hash --bits 4 --method 2 --limit 1e6 --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"primes\":78498,"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("\"max\":5685,\"fullest\":7,"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find(",0]}"), std::string::npos) << l.aus;  // the seventeenth cell

    Abgelehnt("hash --bits 27 --method 0 --limit 1e6", "26");
    Abgelehnt("hash --bits 0 --method 2 --limit 1e6", "26");
    Abgelehnt("hash --bits 2 --method 1 --limit 1e6", "3 und 26");
    Abgelehnt("hash --bits 8 --method 3 --limit 1e6", "Methode");
}

}  // namespace
}  // namespace sw::test
