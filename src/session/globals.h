#pragma once

class cControl;
class cDatabase;

// The two single instances of a run: the session root and the owner of the open
// database. Start-up creates them; tests create fresh ones for each case.
cControl &Control();
cDatabase &Database();

void CreateSessionObjects();
void DestroySessionObjects();

// Opens the data file, brings it up to the present version and reads the settings:
// what every start does once a database exists. The version is read on its own first
// because SurnameCase only exists after the upgrade.
void OpenSessionDatabase();
