// The saved lists of the gap graphic read back as written, and broken files and settings named
// in a message instead of read as zeros.
#include <gtest/gtest.h>

#include "TestUmgebung.h"
#include "distribution/AbstandDatei.h"

namespace sw::test {
namespace {

using AbstandDatei = SwTest;

TEST_F(AbstandDatei, ListenZurueck) {
    const std::string text =
        AbstandCsvText({{"2;4;6;", "x=1000000"}, {"8169;8143;13549;"}, {"2.6571;2.6487;4.4070;"}});
    EXPECT_EQ(text, "2;4;6;\nx=1000000\n\n8169;8143;13549;\n\n2.6571;2.6487;4.4070;\n");
    std::string fehler;
    const auto t = AbstandCsvLesen(text, fehler);
    ASSERT_TRUE(t) << fehler;
    EXPECT_EQ(t->differenzen, (std::vector<int64_t>{2, 4, 6}));
    EXPECT_EQ(t->anzahlen, (std::vector<int64_t>{8169, 8143, 13549}));
    EXPECT_DOUBLE_EQ(t->werte[2], 4.4070);
    // Windows line ends and a decimal comma are read too.
    EXPECT_TRUE(AbstandCsvLesen("2;4\r\n\r\n1;2\r\n\r\n0,5;1,5\r\n", fehler)) << fehler;
}

TEST_F(AbstandDatei, KaputteDateienMitMeldung) {
    struct Fall {
        const char* text;
        const char* teil;  // a piece the message must carry
    };
    for (const Fall& f : {Fall{"", "0 statt drei"}, Fall{"2;4\n\n1;2\n", "2 statt drei"},
                          Fall{"2;4\n\n1;2\n\n1;2\n\n1;2\n", "4 statt drei"},
                          Fall{"2;4;6\n\n1;2\n\n1;2\n", "verschieden lang"},
                          Fall{"2;4\n\n1;zwei\n\n1;2\n", "Zeile 3 der Datei: „zwei“"},
                          Fall{"2;4\n\n1;2\n\n1;2x\n", "Zeile 5 der Datei: „2x“"},
                          Fall{"2;4\n\n1;\n\n1;2\n", "verschieden lang"}}) {
        std::string fehler;
        EXPECT_FALSE(AbstandCsvLesen(f.text, fehler)) << f.text;
        EXPECT_NE(fehler.find(f.teil), std::string::npos) << f.text << " -> " << fehler;
    }
}

TEST_F(AbstandDatei, Einstellungen) {
    std::string meldung;
    EXPECT_EQ(LueckenEinstellung("IntervallLage", "", 1, 2, meldung), 1);
    EXPECT_EQ(LueckenEinstellung("EingabeModus", " 2 ", 0, 2, meldung), 2);
    EXPECT_EQ(meldung, "");
    for (const char* falsch : {"3", "-1", "zwei", "1.5"}) {
        meldung.clear();
        EXPECT_EQ(LueckenEinstellung("EingabeModus", falsch, 0, 2, meldung), 0) << falsch;
        EXPECT_NE(meldung.find(std::string("EingabeModus=") + falsch), std::string::npos) << meldung;
    }
}

}  // namespace
}  // namespace sw::test
