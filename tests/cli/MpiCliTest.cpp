// The range commands spread over the processes of an MPI job: mpirun with 2 and 3 processes
// (more processes than the two cores of CI, hence --oversubscribe) must print byte for byte
// what one process prints, through piece borders that cut twin pairs and runs of records.
// mpirun refuses to start as root unless told; CI runs as root.
#include <cstdlib>
#include <string>

#include "CliBasis.h"

namespace sw::test {
namespace {

class MpiCliTest : public CliBasis {
protected:
    void SetUp() override {
        CliBasis::SetUp();
#if !defined(SW_MPI_GEBAUT)
        // MPI is optional at build time; without it sw-cli has no range pieces to compare.
        GTEST_SKIP() << "sw-cli is built without MPI (SW_MPI off or no MPI found)";
#elif defined(SW_SANITIZE_GEBAUT)
        GTEST_SKIP() << "OpenMPI's own leaks and probes fail the sanitizers; the release build runs these";
#endif
        if (std::system("command -v mpirun >/dev/null 2>&1") != 0) GTEST_SKIP() << "mpirun is not installed";
        ::setenv("OMPI_ALLOW_RUN_AS_ROOT", "1", 1);
        ::setenv("OMPI_ALLOW_RUN_AS_ROOT_CONFIRM", "1", 1);
    }
    void TearDown() override {
        ::unsetenv("SW_MPI_PIECES");
        CliBasis::TearDown();
    }

    Lauf MitProzessen(int prozesse, const std::string& argumente) {
        return ProgrammStarten("mpirun", Ordner(),
                               "--oversubscribe --mca pml ob1 --mca btl self,vader -np " + std::to_string(prozesse) + " " +
                                   SW_CLI_PFAD + " " + argumente);
    }

    // pieces: SW_MPI_PIECES for the job ("" lets sw-cli choose).
    void WieEinProzess(const std::string& argumente, const std::string& stuecke = "") {
        const Lauf allein = Starten(argumente);
        ASSERT_EQ(allein.code, 0) << argumente << ": " << allein.fehler;
        ASSERT_NE(allein.aus, "") << argumente;
        if (!stuecke.empty()) ::setenv("SW_MPI_PIECES", stuecke.c_str(), 1);
        for (int prozesse : {2, 3}) {
            const Lauf l = MitProzessen(prozesse, argumente);
            EXPECT_EQ(l.code, 0) << prozesse << " processes, " << argumente << ": " << l.fehler;
            EXPECT_TRUE(l.aus == allein.aus) << prozesse << " processes, " << argumente << ": " << l.aus.size()
                                             << " bytes instead of " << allein.aus.size();
        }
        ::unsetenv("SW_MPI_PIECES");
    }
};

TEST_F(MpiCliTest, ZaehlenWieEinProzess) {
    WieEinProzess("count 1000000000000 1000100000000");
    WieEinProzess("count --json 999999999990 1000100000007");
}

// Pieces of 120 numbers put a border inside every twin pair p = 120k - 1, p + 2 = 120k + 1;
// each must be printed once.
TEST_F(MpiCliTest, ListenWieEinProzessUeberStueckgrenzen) {
    WieEinProzess("twins 3000000000 3000060000", "500");
    WieEinProzess("twins --json 3000000000 3000060000", "500");
    WieEinProzess("primes --json 3000000001 3000200000", "29");
}

TEST_F(MpiCliTest, CollatzWieEinProzess) {
    WieEinProzess("collatz-count --json 5 30000 --step 3", "11");
    // Records of later pieces that lie below an earlier piece's maximum are no records.
    WieEinProzess("collatz-count --summary 1 300000", "50");
    WieEinProzess("collatz-count --summary --json --rule 3n-1 7 100007 --step 5", "13");
}

TEST_F(MpiCliTest, NurProzessNullSpricht) {
    const Lauf l = MitProzessen(3, "isprime 1000000007");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_EQ(l.aus, "prime\n");

    const Lauf falsch = MitProzessen(2, "count 100 10");
    EXPECT_NE(falsch.code, 0);
    EXPECT_EQ(falsch.aus, "");
    EXPECT_EQ(falsch.fehler.find("sw-cli: "), falsch.fehler.rfind("sw-cli: ")) << falsch.fehler;
    EXPECT_NE(falsch.fehler.find("sw-cli: "), std::string::npos) << falsch.fehler;

    ::setenv("SW_MPI_PIECES", "viele", 1);
    const Lauf stuecke = MitProzessen(2, "count 3000000000 3000100000");
    EXPECT_NE(stuecke.code, 0);
    EXPECT_EQ(stuecke.aus, "");
    EXPECT_NE(stuecke.fehler.find("SW_MPI_PIECES"), std::string::npos) << stuecke.fehler;
}

// Above 2^64 a narrow window's sieving primes cost more than its numbers: it stays one piece.
TEST_F(MpiCliTest, GrosseBereicheWieEinProzess) {
    // Each run above 2^64 spends seconds on its sieving primes alone; the small ranges run always.
    if (std::getenv("SW_LANGE_TESTS") == nullptr) GTEST_SKIP() << "SW_LANGE_TESTS=1 runs it";
    WieEinProzess("count 1000000000000 1001000000000");
    WieEinProzess("count 100000000000000000000 100000000000010000000");
}

}  // namespace
}  // namespace sw::test
