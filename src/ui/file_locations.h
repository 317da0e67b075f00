#pragma once

#include <QString>

// Where the file dialogs of the reports and the export open: the person's documents
// folder the first time, and after that the folder of the last file chosen in any
// of them during the run.
QString FileDialogFolder();
// Notes the folder of a chosen file for the next dialog.
void RememberFileFolder(const QString &filePath);
// Back to the documents folder, as at the start of a run.
void ForgetFileFolder();
