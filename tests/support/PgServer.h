// PgServer: a private PostgreSQL server for the tests, so that nothing touches a real server
// and nothing is mocked. It listens only on a Unix socket inside its own temporary folder,
// runs with fsync off, and is stopped and deleted when the test program ends. One server per
// test program (started on first use), one fresh database per test.
//
// initdb is the slow part (seconds): its result is kept once per user as a template cluster in
// the temporary folder and copied for each server, which then starts in well under a second.
// PostgreSQL refuses to run as root; as root the server runs as the user postgres.
#pragma once

#include <string>

#include "TestUmgebung.h"

namespace sw::test {

class PgServer {
public:
    // The shared server of this test program; nullptr if the PostgreSQL server programs are
    // not installed (FehltGrund() says why). Any other failure to start throws.
    static PgServer* Gemeinsam();
    static std::string FehltGrund();

    ~PgServer();
    PgServer(const PgServer&) = delete;
    PgServer& operator=(const PgServer&) = delete;

    // A new, empty database; its URL (with the password, as a user would give it).
    std::string NeueDatenbank();
    std::string Url(const std::string& datenbank) const;
    std::string Url(const std::string& datenbank, const std::string& passwort) const;
    static const char* Passwort();

    // Stop and start again on the same folder and port, for tests of a lost connection.
    void Anhalten();
    void Starten();

private:
    PgServer();
    std::string ordner_;   // the socket lives here; the cluster in ordner_/daten
    int port_ = 0;
    int naechsteDb_ = 0;
    bool laeuft_ = false;
};

// Fixture: a fresh database on the shared server in url; skipped with the reason when the
// server programs are missing.
class PgTest : public SwTest {
protected:
    void SetUp() override;
    std::string url;
};

}  // namespace sw::test
