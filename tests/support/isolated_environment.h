#pragma once

#include <QString>

// Home, settings, data, cache and runtime folders of a test or benchmark's own under
// root, so that nothing of the person who runs it is read or written. Called before
// the application object is made; it also puts Qt's standard paths in test mode.
void IsolateEnvironment(const QString &root);
