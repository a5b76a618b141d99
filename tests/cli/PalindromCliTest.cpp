// sw-cli palindrome-tree as a user runs it: the published sizes of the growth trees, the
// digit bound, the JSON object, and the one-line refusals of a mode or bound it cannot take.
#include "CliBasis.h"

namespace sw::test {
namespace {

class PalindromCli : public CliBasis {};

TEST_F(PalindromCli, BaeumeUndAblehnungen) {
    Lauf l = Starten("palindrome-tree --mode right");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("digits 1: 4\ndigits 2: 9\n"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("total: 83\nlargest: 73939133\n"), std::string::npos) << l.aus;

    l = Starten("palindrome-tree --mode both --json");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"total\":27,\"largest\":733929337}"), std::string::npos) << l.aus;
    EXPECT_NE(l.aus.find("\"per_length\":{\"1\":4,\"3\":"), std::string::npos) << l.aus;

    // Left, up to 3 digits: 2 3 5 7; 13 17 23 37 43 47 53 67 73 83 97; 39 of three, 997 the last.
    l = Starten("palindrome-tree --mode left --limit 3");
    ASSERT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus, "digits 1: 4\ndigits 2: 11\ndigits 3: 39\ntotal: 54\nlargest: 997\n");

    Abgelehnt("palindrome-tree --mode middle", "right, left or both");
    Abgelehnt("palindrome-tree --mode left --limit -2", "--limit");
    Abgelehnt("palindrome-tree");
}

}  // namespace
}  // namespace sw::test
