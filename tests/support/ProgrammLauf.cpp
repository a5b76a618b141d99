#include "ProgrammLauf.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace sw::test {

Lauf ProgrammStarten(const std::string& programm, const std::string& ordner, const std::string& argumente) {
    const std::string fehlerDatei = ordner + "stderr.txt";
    const std::string befehl =
        "SW_HOME='" + ordner + "' '" + programm + "' " + argumente + " 2>'" + fehlerDatei + "'";
    Lauf lauf;
    FILE* rohr = ::popen(befehl.c_str(), "r");
    if (!rohr) return lauf;
    char puffer[4096];
    size_t n;
    while ((n = std::fread(puffer, 1, sizeof puffer, rohr)) > 0) lauf.aus.append(puffer, n);
    const int status = ::pclose(rohr);
    lauf.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream ein(fehlerDatei);
    std::stringstream s;
    s << ein.rdbuf();
    lauf.fehler = s.str();
    return lauf;
}

}  // namespace sw::test
