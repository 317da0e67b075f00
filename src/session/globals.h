#pragma once

class cControl;
class cDatabase;

// The two single instances of a run: the session root and the owner of the open
// database. Start-up creates them; tests create fresh ones for each case.
cControl &Control();
cDatabase &Database();

void CreateSessionObjects();
void DestroySessionObjects();
bool SessionObjectsExist();
