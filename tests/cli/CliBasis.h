// The fixture of the sw-cli tests: runs the built sw-cli in the test's own folder, and judges a
// refusal (exit 1, nothing on stdout, exactly one line "sw-cli: ..." on stderr).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "ProgrammLauf.h"
#include "TestUmgebung.h"

namespace sw::test {

class CliBasis : public SwTest {
  protected:
    Lauf Starten(const std::string& argumente) {
        return ProgrammStarten(SW_CLI_PFAD, Ordner(), argumente);
    }
    // enthaelt: a word the message must carry ("" where any message will do).
    void Abgelehnt(const std::string& argumente, const std::string& enthaelt = "") {
        const Lauf l = Starten(argumente);
        EXPECT_EQ(l.code, 1) << argumente;
        EXPECT_EQ(l.aus, "") << argumente;
        EXPECT_EQ(l.fehler.rfind("sw-cli: ", 0), 0u) << argumente << ": " << l.fehler;
        EXPECT_EQ(std::count(l.fehler.begin(), l.fehler.end(), '\n'), 1)
            << argumente << ": " << l.fehler;
        EXPECT_NE(l.fehler.find(enthaelt), std::string::npos) << argumente << ": " << l.fehler;
    }
};

}  // namespace sw::test
