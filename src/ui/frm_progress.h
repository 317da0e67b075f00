#pragma once

#include <QDialog>
#include <QElapsedTimer>

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

private:
    // A pass over a grading list updates a hundred thousand times; the window is
    // redrawn a few times a second, which is all that an eye can follow.
    QElapsedTimer sinceRedraw_;
};
