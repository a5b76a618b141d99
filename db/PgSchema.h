// PgSchema: the tables a part of SW keeps on a PostgreSQL server, brought up to date step by
// step. Each part (the Mersenne table, the work queue, ...) numbers its steps 1, 2, 3 ...;
// table t_Version remembers per part the last step done. A connection that finds an older
// state runs the missing steps in one transaction, so that a half-done migration never
// remains; several programs connecting at once wait for each other on an advisory lock
// instead of creating the same table twice. A state newer than the program knows is refused:
// an old program must not write into tables whose meaning it does not know.
#pragma once

#include <string>
#include <vector>

#include "db/PgVerbindung.h"

namespace sw {

struct PgSchemaSchritt {
    int version;
    std::string sql;   // one or more statements
};

// Runs the steps of `teil` beyond its stored version; the version reached.
int PgSchemaSicherstellen(PgVerbindung& v, const std::string& teil, const std::vector<PgSchemaSchritt>& schritte);

}  // namespace sw
