// sw-cli lucas: the verdict lines, the refusals, and a run killed without warning that goes
// on from its checkpoint to the Res64 of an uninterrupted run.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "CliBasis.h"

namespace sw::test {
namespace {

class LucasCli : public CliBasis {};

TEST_F(LucasCli, VerdictRes64AndRefusals) {
    Lauf l = Starten("lucas 11");
    EXPECT_EQ(l.code, 0);
    EXPECT_EQ(l.aus.substr(0, l.aus.find("seconds")),
              "2^11-1 is composite\nRes64: 00000000000006C8\nmethod: 2 (Karatsuba)\n");
    l = Starten("lucas 127 --method 0 --json");
    EXPECT_EQ(l.code, 0);
    EXPECT_NE(l.aus.find("\"verdict\":\"prime\",\"res64\":\"0000000000000000\",\"method\":0"), std::string::npos)
        << l.aus;
    Abgelehnt("lucas 2", "mindestens 3");
    Abgelehnt("lucas 4095", "Primzahl");
    Abgelehnt("lucas 11 --method 4", "--method");
}

TEST_F(LucasCli, AKilledRunGoesOnFromItsCheckpoint) {
    const std::string datei = Ordner() + "/Lucas_20011.chk";
    const pid_t kind = fork();
    ASSERT_GE(kind, 0);
    if (kind == 0) {
        setenv("SW_HOME", Ordner().c_str(), 1);
        freopen("/dev/null", "w", stdout);
        execl(SW_CLI_PFAD, SW_CLI_PFAD, "lucas", "20011", "--method", "2", "--checkpoint-every", "0.05", nullptr);
        _exit(127);
    }
    bool gesehen = false;
    for (int k = 0; k < 2000 && !gesehen; ++k) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        gesehen = std::filesystem::exists(datei);
    }
    kill(kind, SIGKILL);
    int status = 0;
    waitpid(kind, &status, 0);
    ASSERT_TRUE(gesehen);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the run ended before it could be killed";

    const Lauf l = Starten("lucas 20011 --resume --json");
    EXPECT_EQ(l.code, 0) << l.fehler;
    EXPECT_NE(l.aus.find("\"res64\":\"13BD055BF739119F\""), std::string::npos) << l.aus;
    EXPECT_EQ(l.aus.find("\"resumed_from\":0}"), std::string::npos) << l.aus;
    EXPECT_FALSE(std::filesystem::exists(datei));
}

}  // namespace
}  // namespace sw::test
