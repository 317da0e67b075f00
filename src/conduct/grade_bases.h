#pragma once

#include "session/player.h"

#include <QHash>
#include <QString>

// The stored type and default grade of each tournament a pass meets, read once, so
// that a sort or a walk over many entrants chooses grades without a query each.
class cGradeBases
{
public:
    const cGradeBasis &Of(const cPlayer &player)
    {
        auto found = bases_.find(player.TournId());
        if (found == bases_.end())
            found = bases_.insert(player.TournId(), cGradeBasis::Stored(player.TournId()));
        return found.value();
    }

private:
    QHash<QString, cGradeBasis> bases_;
};
