// ProgrammLauf: runs a built program (sw-cli) as a user would, in a given working folder,
// and keeps its exit code, standard output and standard error for the test to judge.
#pragma once

#include <string>

namespace sw::test {

struct Lauf {
    int code = -1;
    std::string aus;
    std::string fehler;
};

// Runs "programm argumente" through the shell with SW_HOME=ordner; stderr goes through a
// file in ordner so that the two streams stay apart.
Lauf ProgrammStarten(const std::string& programm, const std::string& ordner, const std::string& argumente);

}  // namespace sw::test
