#include "base/common.h"
#include "base/user_interaction.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

namespace {

const QString LineEnd = QStringLiteral("\r\n");

QString NameOf(const cPlayer &player)
{
    return player.DisplayName(false);
}

} // namespace

void cTournament::ValidatePairings(qint16 round)
{
    cResults &results = Results();
    cPlayers &players = Players();
    std::vector<const cResult *> rows;
    for (const std::shared_ptr<cResult> &row : results)
        if (NumericValue(row->Round()) == round)
            rows.push_back(row.get());

    QString report;
    bool errors = false;

    qint32 unnumbered = 0;
    qint32 byes = 0;
    for (const cResult *row : rows) {
        if (row->Board().isEmpty() && row->White() && row->Black())
            ++unnumbered;
        if (bool(row->White()) != bool(row->Black()))
            ++byes;
    }
    // Neither of these is an error: boards can come later, and a bye is a pairing.
    if (unnumbered > 0)
        report += QString::number(unnumbered) +
                  QStringLiteral(" pairings have not been allocated board numbers.") + LineEnd;
    if (byes == 1)
        report +=
            QStringLiteral("There is ") + QString::number(byes) + QStringLiteral(" bye.") + LineEnd;
    else
        report += QStringLiteral("There are ") + QString::number(byes) + QStringLiteral(" byes.") +
                  LineEnd;

    // Players are told apart by pin alone, here and below.
    for (const cResult *row : rows) {
        if (row->White() && row->Black() && row->White()->Pin() == row->Black()->Pin()) {
            report +=
                NameOf(*row->White()) + QStringLiteral(" is paired against themselves.") + LineEnd;
            errors = true;
        }
    }

    for (const std::shared_ptr<cPlayer> &entrant : players) {
        qint32 pairings = 0;
        qint32 withdrawnPairings = 0;
        for (const cResult *row : rows) {
            for (const cPlayer *side : {row->White().get(), row->Black().get()}) {
                if (!side || side->Pin() != entrant->Pin())
                    continue;
                ++pairings;
                if (entrant->Withdrawn())
                    ++withdrawnPairings;
            }
        }
        if (!entrant->Withdrawn() && pairings == 0) {
            report += NameOf(*entrant) + QStringLiteral(" has not been paired.") + LineEnd;
            errors = true;
        }
        if (pairings > 1) {
            report += NameOf(*entrant) + QStringLiteral(" is in more than one pairing.") + LineEnd;
            errors = true;
        }
        if (withdrawnPairings > 0) {
            report += NameOf(*entrant) +
                      QStringLiteral(" has been withdrawn, but has been included in a pairing.") +
                      LineEnd;
            errors = true;
        }
    }
    if (!errors)
        report += QStringLiteral("Pairings are complete and correct.") + LineEnd;
    report += QString(41, u'=') + LineEnd;

    // "N" is a result: only an empty one is missing.
    bool missing = false;
    for (const cResult *row : rows) {
        if ((!row->White() && !row->Black()) || !row->Result().isEmpty())
            continue;
        missing = true;
        if (!row->White())
            report += QStringLiteral("No result for the bye for ") + NameOf(*row->Black()) + u'.' +
                      LineEnd;
        else if (row->Black())
            report += QStringLiteral("No result for ") + NameOf(*row->White()) +
                      QStringLiteral(" vs ") + NameOf(*row->Black()) + u'.' + LineEnd;
        else
            report += QStringLiteral("No result for the bye for ") + NameOf(*row->White()) + u'.' +
                      LineEnd;
    }
    if (!missing)
        report += QStringLiteral("All results have been entered.") + LineEnd;

    Interaction().ShowLongText(QStringLiteral("Validate results"), report);
}
