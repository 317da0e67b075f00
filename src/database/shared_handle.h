#pragma once

struct sqlite3;

// The SQLite handle of the open connection, when Qt's driver uses the very SQLite
// library that this program links; null when the driver carries a copy of its own,
// which must not be given our calls. Long passes over many rows speak to SQLite
// through it, because Qt's value-by-value binding and reading cost more than the
// engine's own work for a hundred thousand rows.
sqlite3 *SharedSqliteHandle();

// Makes the program act as if the driver kept a SQLite library of its own, so that the
// way through Qt's binding is tried too; for tests.
void setSharedHandleRefused(bool refused);
