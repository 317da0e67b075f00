#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

// The progress window of every long pass, shown without waiting.
class frmProgress : public QDialog
{
    Q_OBJECT

public:
    explicit frmProgress(QWidget *parent = nullptr);

    void Start(const QString &text, qint32 maximum);
    void Update(qint32 value);
    void Terminate();

    QLabel *lblMsg;
    QProgressBar *pnlProgress;
};
