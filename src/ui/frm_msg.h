#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

// A plain viewer for a long report of checks.
class frmMsg : public QDialog
{
    Q_OBJECT

public:
    explicit frmMsg(QWidget *parent = nullptr);

    QPlainTextEdit *txtNotes;
    QPushButton *cmdClose;
};
