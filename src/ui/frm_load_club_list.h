#pragma once

#include "ui/load_list_dialog.h"

// Picks the dBase file of a new club list.
class frmLoadClubList : public cLoadListDialog
{
    Q_OBJECT

public:
    explicit frmLoadClubList(QWidget *parent = nullptr);
};
