// sw-cli quadrat as a user runs it: the known figures of each tool, the JSON shapes a script
// reads, the gcd named instead of a 0, and the one-line refusals of input that has no answer.
#include "CliBasis.h"

namespace sw::test {
namespace {

class QuadratCli : public CliBasis {
  protected:
    std::string Aus(const std::string& argumente) {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 0) << argumente << ": " << l.fehler;
        return l.aus;
    }
};

TEST_F(QuadratCli, RootsJacobiAndRootsModPrime) {
    EXPECT_EQ(Aus("quadrat sqrt 99"), "root: 9\nrest: 18\nexact: no\n");
    EXPECT_EQ(Aus("quadrat sqrt 2147395600 --json"),
              "{\"n\":\"2147395600\",\"k\":2,\"root\":\"46340\",\"rest\":\"0\",\"exact\":true}\n");
    EXPECT_EQ(Aus("quadrat sqrt '10^30+1' --root 3"), "root: 10000000000\nrest: 1\nexact: no\n");
    EXPECT_EQ(Aus("quadrat jacobi 3 '2^127-1'"), "-1\n");
    EXPECT_EQ(Aus("quadrat sqrt 2 --mod '10^9+7'"), "roots: 59713600 940286407\n");
    EXPECT_EQ(Aus("quadrat sqrt 5 --mod '10^9+7' --json"), "{\"n\":\"5\",\"p\":\"1000000007\",\"roots\":[]}\n");
    Abgelehnt("quadrat sqrt 2 --mod 91", "keine Primzahl");
    Abgelehnt("quadrat jacobi 3 10", "ungeraden");
    Abgelehnt("quadrat sqrt 8 --root 1", "zwischen 2");
    Abgelehnt("quadrat sqrt 12x", "");
}

TEST_F(QuadratCli, InversesAndPrimitiveRoots) {
    EXPECT_EQ(Aus("quadrat inverse '10^30+57' '2^127-1'"), "inverse: 7668730993594610578260002946019408669\n");
    EXPECT_EQ(Aus("quadrat inverse 12 18"), "no inverse: gcd(A, M) = 6\n");
    EXPECT_EQ(Aus("quadrat inverse 12 18 --json"),
              "{\"a\":\"12\",\"m\":\"18\",\"gcd\":\"6\",\"inverse\":null,\"routine\":\"ModInverseLong\"}\n");
    Abgelehnt("quadrat inverse 3 1", "mindestens 2");

    EXPECT_EQ(Aus("quadrat primroot 760321"), "least primitive root: 73\nprimes of p-1: 2 3 5 11\n");
    EXPECT_EQ(Aus("quadrat primroot '2^31-1' --order 2"),
              "least primitive root: 7\nprimes of p-1: 2 3 7 11 31 151 331\norder of 2: 31\n");
    EXPECT_EQ(Aus("quadrat primroot '10^9+7' --json"), "{\"p\":\"1000000007\",\"root\":\"5\",\"factors\":[\"2\",\"500000003\"]}\n");
    EXPECT_EQ(Aus("quadrat primroot '2^61-1' --order 2"),
              "least primitive root: 37\nprimes of p-1: 2 3 5 7 11 13 31 41 61 151 331 1321\norder of 2: 61\n");
    Abgelehnt("quadrat primroot 1000000", "keine Primzahl");
}

TEST_F(QuadratCli, BytesWordsAndFft) {
    EXPECT_EQ(Aus("quadrat bytes '2^64+1'"), "number: 18446744073709551617\nbytes: 01 00 00 00 00 00 00 00 01\ntext: (no readable UTF-8)\n");
    EXPECT_EQ(Aus("quadrat bytes --text 'Zahl ü'"), Aus("quadrat bytes --hex '5A 61 68 6C 20 C3 BC'"));
    EXPECT_EQ(Aus("quadrat bytes --hex 4142 --json"), "{\"number\":\"16961\",\"bytes\":\"41 42\",\"text\":\"AB\"}\n");
    Abgelehnt("quadrat bytes --hex '01 0G'", "Hexziffer");
    Abgelehnt("quadrat bytes 5 --text x", "exactly one");

    EXPECT_EQ(Aus("quadrat word '2^64-2' + 1"), "18446744073709551615\n");
    EXPECT_EQ(Aus("quadrat word '2^64' '*' '2^63' --bits 128"), "170141183460469231731687303715884105728\n");
    Abgelehnt("quadrat word 7 / 0", "Division durch 0 nicht möglich!");
    Abgelehnt("quadrat word 7 mod 0 --bits 128", "Division durch 0 nicht möglich!");
    Abgelehnt("quadrat word '2^64-1' + 1", "Überlauf");
    Abgelehnt("quadrat word 1 - 2 --bits 128", "negativ");
    Abgelehnt("quadrat word 1 '^' 2", "OP");

    const std::string fft = Aus("quadrat fft '3^5000' '7^4000' --json");
    EXPECT_NE(fft.find("\"equal\":true"), std::string::npos) << fft;
    EXPECT_NE(fft.find("\"points\":4096,"), std::string::npos) << fft;
}

}  // namespace
}  // namespace sw::test
