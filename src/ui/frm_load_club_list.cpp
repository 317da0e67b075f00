#include "ui/frm_load_club_list.h"

frmLoadClubList::frmLoadClubList(QWidget *parent)
    : cLoadListDialog(QStringLiteral("frmLoadClubList"), tr("Select New BCF Club List"),
                      tr("Select the new BCF Club List to be loaded to Velmora!"),
                      QStringLiteral("clubs.dbf"), parent)
{}
