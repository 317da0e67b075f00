#pragma once

#include <QWidget>

#include <memory>

class QLabel;
class cMaster;

// The register's side of a match, read-only: the person as the register has them.
class cntlMasterSummary : public QWidget
{
    Q_OBJECT

public:
    explicit cntlMasterSummary(QWidget *parent = nullptr);

    std::shared_ptr<cMaster> Master() const { return master_; }
    void setMaster(std::shared_ptr<cMaster> master) { master_ = std::move(master); }
    void Display();

    QLabel *lblName;
    QLabel *lblCode;
    QLabel *lblAddress;
    QLabel *lblPostcode;
    QLabel *lblGender;
    QLabel *lblDOB;
    QLabel *lblAge;
    QLabel *lblClub;
    QLabel *lblGrades;

private:
    std::shared_ptr<cMaster> master_;
};
