#include "conduct/trf_tournament.h"

#include "base/common.h"
#include "conduct/tournament_pairing.h"
#include "database/load_values.h"
#include "database/sql.h"
#include "register/master.h"
#include "session/control.h"
#include "session/globals.h"
#include "session/player.h"
#include "session/players.h"
#include "session/result.h"
#include "session/results.h"
#include "session/tournament.h"

#include <QDate>
#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <numeric>

namespace mTrfTournament {

namespace {

using mSwiss::cSwissGame;
using mSwiss::eColour;

// A game of two players: its code and the two sides' file codes. The first row of a
// code is how it is written; every row is read as its code.
struct cGameCodes
{
    const char *code;
    char white;
    char black;
};

constexpr cGameCodes GameCodes[] = {
    {"W", '1', '0'}, {"W", '+', '-'}, {"W", 'W', 'L'}, {"B", '0', '1'},
    {"B", '-', '+'}, {"B", 'L', 'W'}, {"D", '=', '='}, {"D", 'D', 'D'},
    {"Z", '-', '-'}, {"N", '0', '0'}, {"N", 'L', 'L'}, {"", ' ', ' '},
};

// A code that the grid never stores (C from an old file) is written as no result.
const cGameCodes &WrittenCodes(const QString &code)
{
    for (const cGameCodes &codes : GameCodes)
        if (code == QLatin1String(codes.code))
            return codes;
    return GameCodes[std::size(GameCodes) - 1];
}

const cGameCodes *ReadCodes(char white, char black)
{
    for (const cGameCodes &codes : GameCodes)
        if (codes.white == white && codes.black == black)
            return &codes;
    return nullptr;
}

// A row of one player, by the points it brings that player.
char ByeCode(const QString &code, bool white)
{
    if (code == (white ? u"W" : u"B"))
        return 'U';
    if (code == u"D")
        return 'H';
    return '-';
}

// The code of the one-player row a round without opponent becomes; "" for no row.
QString ByeRowCode(char result)
{
    if (result == 'U' || result == 'F' || result == '+')
        return QStringLiteral("W");
    if (result == 'H')
        return QStringLiteral("D");
    return QString();
}

constexpr qsizetype SurnameSize = 20;
constexpr qsizetype ForenameSize = 15;
constexpr qsizetype TitleSize = 40;
constexpr int MostRounds = 32767;
constexpr size_t NameWidth = 33;
constexpr int RoundsOfNewTournament = 5;

// The name cut to the file's column, never inside a character.
std::string NameField(const QString &name)
{
    std::string text = name.toStdString();
    if (text.size() <= NameWidth)
        return text;
    size_t end = NameWidth;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return text.substr(0, end);
}

std::string TrfDate(const QString &displayDate)
{
    const QDate date = DateFromText(displayDate);
    return date.isValid() ? date.toString(u"yyyy/MM/dd").toStdString() : std::string();
}

QDate DateOfTrf(const QString &text)
{
    for (const QString &form : {QStringLiteral("yyyy/MM/dd"), QStringLiteral("yyyy-MM-dd"),
                                QStringLiteral("yyyy.MM.dd")}) {
        const QDate date = QDate::fromString(text, form);
        if (date.isValid())
            return date;
    }
    return {};
}

// The grade field that a tournament of the type reads first.
template <typename cRecord> void SetGradeOfType(cRecord &record, const QString &type, int rating)
{
    const QString value = QString::number(rating);
    if (type == u"R" || type == u"D")
        record.setRapidPlay(value);
    else if (type == u"F")
        record.setFIDE(value);
    else if (type.isEmpty() || type == u"B")
        record.setLongPlay(value);
}

QString RegisterKey(const QString &surname, const QString &forename)
{
    return surname.trimmed().toCaseFolded() + u'\n' + forename.trimmed().toCaseFolded();
}

// The people of the register by name, each given to one entrant of the import at
// most; the lowest id first when names are shared.
class cRegisterByName
{
public:
    cRegisterByName()
    {
        QSqlQuery rows = RunSql(
            QStringLiteral("Select MasterId, Surname, Forename From Master Order By MasterId"));
        while (rows.next())
            ids_[RegisterKey(TextOf(rows.value(1)), TextOf(rows.value(2)))].append(
                NumberTextOf(rows.value(0)));
    }

    // The id of a person of that name not yet taken, or "".
    QString Take(const QString &surname, const QString &forename)
    {
        QStringList &ids = ids_[RegisterKey(surname, forename)];
        return ids.isEmpty() ? QString() : ids.takeFirst();
    }

private:
    QHash<QString, QStringList> ids_;
};

struct cEntrantPlan
{
    QString surname;
    QString forename;
    int rating = 0;
};

struct cRowPlan
{
    int round = 0;
    int board = 0;
    int white = 0; // pairing numbers, 0 for none
    int black = 0;
    QString code;
};

struct cPlan
{
    QString title;
    QString tourn;
    QString tDate;
    QString tEnd;
    QString tType;
    int rounds = 0;
    int currRound = 1;
    std::vector<cEntrantPlan> entrants;
    std::vector<cRowPlan> rows;
};

cTrfImport Refused(int line, const QString &reason)
{
    cTrfImport refused;
    refused.message =
        QStringLiteral("Line ") + QString::number(line) + QStringLiteral(": ") + reason;
    return refused;
}

// The tournament's fields from the header lines; a refusal when one can not be taken.
std::optional<cTrfImport> PlanHeaders(const mSwiss::cTrfFile &file, cPlan &plan)
{
    for (size_t i = 0; i < file.headers.size(); ++i) {
        const auto &[code, header] = file.headers[i];
        const QString text = QString::fromStdString(header).trimmed();
        const int line = i < file.headerLines.size() ? file.headerLines[i] : 0;
        if (code == "012") {
            // The name as written by TrfOfTournament: the title, ": " and the event.
            const qsizetype colon = text.indexOf(QStringLiteral(": "));
            plan.title = (colon < 0 ? text : text.left(colon)).trimmed().left(TitleSize);
            plan.tourn = colon < 0 ? QString() : text.mid(colon + 2).trimmed().left(TitleSize);
        } else if ((code == "042" || code == "052") && !text.isEmpty()) {
            const QDate date = DateOfTrf(text);
            if (!date.isValid())
                return Refused(line, QStringLiteral("the date \"") + text +
                                         QStringLiteral("\" is not a date written yyyy/mm/dd."));
            (code == "042" ? plan.tDate : plan.tEnd) = DisplayDate(date);
        } else if (code == "092") {
            // The type by its name or its letter; any other kind is the standard one.
            cTournament probe;
            probe.setTTypeLiteral(text);
            const QString letter = probe.TType().toUpper();
            if (letter.size() == 1 && QStringLiteral("BRFMD").contains(letter))
                plan.tType = letter;
        }
    }
    return std::nullopt;
}

std::optional<cTrfImport> PlanRounds(const mSwiss::cTrfFile &file, cPlan &plan)
{
    const auto &entrants = file.tournament.entrants;
    size_t played = 0;
    for (const auto &entrant : entrants)
        played = std::max(played, entrant.games.size());
    if (file.roundsGiven && file.tournament.rounds > MostRounds)
        return Refused(file.roundsLine, QStringLiteral("a tournament can hold at most ") +
                                            QString::number(MostRounds) +
                                            QStringLiteral(" rounds."));
    const size_t limit = file.roundsGiven ? size_t(file.tournament.rounds) : size_t(MostRounds);
    for (size_t i = 0; i < entrants.size(); ++i)
        if (entrants[i].games.size() > limit)
            return Refused(file.players[i].line,
                           QStringLiteral("round ") + QString::number(limit + 1) +
                               (file.roundsGiven
                                    ? QStringLiteral(" is beyond the ") + QString::number(limit) +
                                          QStringLiteral(" rounds of the XXR line.")
                                    : QStringLiteral(" is more than a tournament "
                                                     "can hold.")));
    plan.rounds = file.roundsGiven ? file.tournament.rounds
                  : played > 0     ? int(played)
                                   : RoundsOfNewTournament;

    for (size_t r = 0; r < played; ++r) {
        const int round = int(r + 1);
        int board = 0;
        std::vector<cRowPlan> byes;
        for (size_t i = 0; i < entrants.size(); ++i) {
            if (r >= entrants[i].games.size())
                continue;
            const cSwissGame &game = entrants[i].games[r];
            const int number = int(i + 1);
            if (game.opponent == 0) {
                const QString code = ByeRowCode(game.result);
                if (!code.isEmpty())
                    byes.push_back({round, 0, number, 0, code});
                continue;
            }
            // Each game once, from the higher-placed of its two players.
            if (game.opponent < number)
                continue;
            const cSwissGame &other = entrants[size_t(game.opponent - 1)].games[r];
            const bool white = game.colour == eColour::White;
            const cGameCodes *codes =
                white ? ReadCodes(game.result, other.result) : ReadCodes(other.result, game.result);
            if (!codes)
                return Refused(file.players[i].line,
                               QStringLiteral("the results '") + QChar::fromLatin1(game.result) +
                                   QStringLiteral("' and '") + QChar::fromLatin1(other.result) +
                                   QStringLiteral("' of round ") + QString::number(round) +
                                   QStringLiteral(" against player ") +
                                   QString::number(game.opponent) +
                                   QStringLiteral(" do not go together."));
            plan.rows.push_back({round, ++board, white ? number : game.opponent,
                                 white ? game.opponent : number, QLatin1String(codes->code)});
        }
        for (cRowPlan &bye : byes) {
            bye.board = ++board;
            plan.rows.push_back(bye);
        }
    }

    // The round to offer first: the last one with rows while it has games to finish,
    // else the one after it.
    int last = 0;
    bool unfinished = false;
    for (const cRowPlan &row : plan.rows) {
        if (row.round > last)
            unfinished = false;
        last = std::max(last, row.round);
        unfinished = unfinished || row.code.isEmpty();
    }
    plan.currRound = last == 0 ? 1 : unfinished ? last : std::min(plan.rounds, last + 1);
    return std::nullopt;
}

std::optional<cTrfImport> PlanEntrants(const mSwiss::cTrfFile &file, cPlan &plan)
{
    for (size_t i = 0; i < file.tournament.entrants.size(); ++i) {
        const QString name = QString::fromStdString(file.tournament.entrants[i].name);
        const qsizetype comma = name.indexOf(u',');
        cEntrantPlan entrant;
        entrant.surname = (comma < 0 ? name : name.left(comma)).trimmed();
        entrant.forename = comma < 0 ? QString() : name.mid(comma + 1).trimmed();
        entrant.rating = file.tournament.entrants[i].rating;
        const int line = file.players[i].line;
        // Quoted cut short, so that a huge field never makes a huge message box.
        if (entrant.surname.size() > SurnameSize)
            return Refused(line, QStringLiteral("the surname \"%1\" is longer than %2 characters.")
                                     .arg(MessageExcerpt(entrant.surname))
                                     .arg(SurnameSize));
        if (entrant.forename.size() > ForenameSize)
            return Refused(line, QStringLiteral("the forename \"%1\" is longer than %2 characters.")
                                     .arg(MessageExcerpt(entrant.forename))
                                     .arg(ForenameSize));
        plan.entrants.push_back(entrant);
    }
    return std::nullopt;
}

// Names come as UTF-8, as this program writes them; a file that is not UTF-8 was
// written in Latin-1 by an older program.
std::string Utf8Text(const std::string &text)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString decoded = utf8(QByteArrayView(text.data(), qsizetype(text.size())));
    if (!utf8.hasError())
        return text;
    return QString::fromLatin1(text.data(), qsizetype(text.size())).toStdString();
}

// The open tournament goes back to what it was unless the import finishes.
class cOpenTournamentKept
{
public:
    cOpenTournamentKept() : previous_(Control().Tournament()) {}
    ~cOpenTournamentKept()
    {
        if (keep_)
            Control().setTournament(previous_);
    }
    cOpenTournamentKept(const cOpenTournamentKept &) = delete;
    cOpenTournamentKept &operator=(const cOpenTournamentKept &) = delete;

    void Release() { keep_ = false; }

private:
    std::shared_ptr<cTournament> previous_;
    bool keep_ = true;
};

std::shared_ptr<cPlayer> EnterFromRegister(cTournament &tournament, cRegisterByName &register_,
                                           const cEntrantPlan &plan, int number)
{
    cMaster master;
    const QString masterId = register_.Take(plan.surname, plan.forename);
    if (!masterId.isEmpty()) {
        master.Load(masterId);
    } else {
        master.setSurname(plan.surname);
        master.setForename(plan.forename);
        if (plan.rating > 0)
            SetGradeOfType(master, tournament.TType(), plan.rating);
        master.Create();
    }
    const std::shared_ptr<cPlayer> player =
        tournament.Players().AddFromMaster(tournament.TournId(), master);
    player->setPin(QString::number(number));
    // The tournament was played at the file's rating; the register's grades stay where
    // they give it already.
    if (plan.rating > 0 && WholeValue(player->Grade()) != plan.rating)
        SetGradeOfType(*player, tournament.TType(), plan.rating);
    player->Update();
    return player;
}

void WritePlan(const cPlan &plan, cTournament &tournament)
{
    tournament.setTitle(plan.title);
    tournament.setTourn(plan.tourn);
    tournament.setTDate(plan.tDate);
    tournament.setTEnd(plan.tEnd);
    tournament.setTType(plan.tType);
    tournament.Create();
    // A new tournament starts at its own number of rounds; the file's come after.
    tournament.setRounds(QString::number(plan.rounds));
    tournament.setCurrRound(QString::number(plan.currRound));
    tournament.Update();

    std::vector<std::shared_ptr<cPlayer>> byNumber;
    if (!plan.entrants.empty()) {
        cRegisterByName register_;
        for (const cEntrantPlan &entrant : plan.entrants)
            byNumber.push_back(
                EnterFromRegister(tournament, register_, entrant, int(byNumber.size() + 1)));
    }
    auto playerOf = [&byNumber](int number) {
        return number > 0 ? byNumber[size_t(number - 1)] : std::shared_ptr<cPlayer>();
    };
    int lastRound = 0;
    for (const cRowPlan &row : plan.rows) {
        tournament.Results().Add(QString::number(row.round), QString::number(row.board),
                                 playerOf(row.white), playerOf(row.black), row.code);
        lastRound = std::max(lastRound, row.round);
    }
    for (int round = 1; round <= lastRound; ++round)
        tournament.Results().UpdateResults(qint16(round));
}

} // namespace

mSwiss::cTrfFile TrfOfTournament(cTournament &tournament)
{
    mSwiss::cTrfFile file;
    std::vector<std::shared_ptr<cPlayer>> byNumber;
    // Pairing numbers, names and ratings as the pairing has them; the games follow.
    file.tournament = mTournamentPairing::SwissTournamentBefore(tournament, 1, byNumber);
    auto &entrants = file.tournament.entrants;

    // Rows keep their players by id: a row entered on the grid holds its own copy.
    QHash<QString, size_t> indexOf;
    for (size_t i = 0; i < byNumber.size(); ++i)
        indexOf.insert(byNumber[i]->PlayerId(), i);
    auto entrantOf = [&indexOf](const std::shared_ptr<cPlayer> &player) -> qsizetype {
        return player ? qsizetype(indexOf.value(player->PlayerId(), size_t(-1))) : -1;
    };

    qint64 lastRound = 0;
    for (const auto &row : tournament.Results())
        if (entrantOf(row->White()) >= 0 || entrantOf(row->Black()) >= 0)
            lastRound = std::max(lastRound, WholeValue(row->Round()));
    for (size_t i = 0; i < entrants.size(); ++i) {
        entrants[i].name = NameField(byNumber[i]->DisplayName(false));
        entrants[i].games.assign(size_t(lastRound), cSwissGame{});
    }
    for (const auto &row : tournament.Results()) {
        const qint64 round = WholeValue(row->Round());
        const qsizetype white = entrantOf(row->White());
        const qsizetype black = entrantOf(row->Black());
        if (round < 1 || round > lastRound || (white < 0 && black < 0))
            continue;
        const size_t r = size_t(round - 1);
        const QString code = row->Result().trimmed().toUpper();
        if (white >= 0 && black >= 0) {
            const cGameCodes &codes = WrittenCodes(code);
            entrants[size_t(white)].games[r] = {int(black + 1), eColour::White, codes.white};
            entrants[size_t(black)].games[r] = {int(white + 1), eColour::Black, codes.black};
        } else {
            const bool onWhite = white >= 0;
            entrants[size_t(onWhite ? white : black)].games[r].result = ByeCode(code, onWhite);
        }
    }

    std::vector<size_t> standing(entrants.size());
    std::iota(standing.begin(), standing.end(), size_t(0));
    std::stable_sort(standing.begin(), standing.end(), [&entrants](size_t a, size_t b) {
        return entrants[a].HalfPoints() > entrants[b].HalfPoints();
    });
    file.players.resize(entrants.size());
    for (size_t place = 0; place < standing.size(); ++place) {
        mSwiss::cTrfPlayer &player = file.players[standing[place]];
        player.halfPoints = entrants[standing[place]].HalfPoints();
        player.rank = int(place + 1);
    }

    auto header = [&file](const char *code, const std::string &text) {
        if (!text.empty())
            file.headers.emplace_back(code, text);
    };
    header("012", tournament.DisplayName().toStdString());
    header("042", TrfDate(tournament.TDate()));
    header("052", TrfDate(tournament.TEnd()));
    header("062", std::to_string(entrants.size()));
    header("092", tournament.TTypeLiteral().toStdString());
    file.tournament.rounds = int(std::max({qint64(1), WholeValue(tournament.Rounds()), lastRound}));
    file.roundsGiven = true;
    return file;
}

std::string TrfTextOfTournament(cTournament &tournament)
{
    return mSwiss::WriteTrf(TrfOfTournament(tournament));
}

cTrfImport ImportTrf(const std::string &text)
{
    const mSwiss::cTrfReading reading = mSwiss::ReadTrf(Utf8Text(text));
    if (!reading.ok) {
        cTrfImport refused;
        refused.message = QString::fromStdString(reading.message);
        return refused;
    }
    const mSwiss::cTrfFile &file = reading.file;
    cPlan plan;
    for (auto step : {PlanHeaders, PlanEntrants, PlanRounds})
        if (auto refused = step(file, plan))
            return *refused;

    cOpenTournamentKept kept;
    cTransaction transaction;
    auto written = std::make_shared<cTournament>();
    // An entrant is always written into the open tournament.
    Control().setTournament(written);
    WritePlan(plan, *written);

    // Opened afresh, as the open command does, so the figures are worked out.
    auto opened = std::make_shared<cTournament>();
    opened->Load(written->TournId());
    Control().setTournament(opened);
    opened->Players().LoadAllPlayers();
    opened->Results().LoadAllResults();
    opened->Players().RecalcAll(qint16(WholeValue(opened->Rounds())));
    transaction.Commit();
    kept.Release();

    cTrfImport imported;
    imported.ok = true;
    imported.tournament = opened;
    imported.players = int(plan.entrants.size());
    imported.rounds = plan.rounds;
    return imported;
}

} // namespace mTrfTournament
