#include "conduct/trf_file.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace mSwiss {

namespace {

// Where the player line's fields stand (0-based start, width).
constexpr size_t NumberAt = 4, NumberWidth = 4;
constexpr size_t SexAt = 9;
constexpr size_t TitleAt = 10, TitleWidth = 3;
constexpr size_t NameAt = 14, NameWidth = 33;
constexpr size_t RatingAt = 48, RatingWidth = 4;
constexpr size_t FederationAt = 53, FederationWidth = 3;
constexpr size_t IdAt = 57, IdWidth = 11;
constexpr size_t BirthAt = 69, BirthWidth = 10;
constexpr size_t PointsAt = 80, PointsWidth = 4;
constexpr size_t RankAt = 85, RankWidth = 4;
constexpr size_t FirstRoundAt = 91, RoundWidth = 10;

const std::set<std::string> HeaderCodes = {"012", "022", "032", "042", "052", "062", "072",
                                           "082", "092", "102", "112", "122", "132"};

std::string Trimmed(const std::string &text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Field(const std::string &line, size_t at, size_t width)
{
    return at < line.size() ? Trimmed(line.substr(at, width)) : std::string();
}

bool Whole(const std::string &text, int &value)
{
    if (text.empty() || text.size() > 9 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    value = std::stoi(text);
    return true;
}

// "4.5" or "4" in half points.
bool HalfPointsOf(const std::string &text, int &value)
{
    const auto dot = text.find('.');
    int whole = 0;
    if (!Whole(dot == std::string::npos ? text : text.substr(0, dot), whole))
        return false;
    value = whole * 2;
    if (dot == std::string::npos)
        return true;
    const std::string fraction = text.substr(dot + 1);
    if (fraction == "5")
        return ++value, true;
    return fraction == "0";
}

std::string Padded(const std::string &text, size_t width, bool right)
{
    if (text.size() >= width)
        return text.substr(0, width);
    const std::string pad(width - text.size(), ' ');
    return right ? pad + text : text + pad;
}

char ColourCode(eColour colour)
{
    return colour == eColour::White ? 'w' : colour == eColour::Black ? 'b' : '-';
}

cTrfReading Refused(int line, const std::string &reason)
{
    cTrfReading reading;
    reading.line = line;
    reading.message = "Line " + std::to_string(line) + ": " + reason;
    return reading;
}

} // namespace

std::string cTrfFile::Header(const std::string &code) const
{
    for (const auto &[key, text] : headers)
        if (key == code)
            return text;
    return {};
}

cTrfReading ReadTrf(const std::string &text)
{
    cTrfReading reading;
    cTrfFile &file = reading.file;
    std::vector<std::pair<cSwissEntrant, cTrfPlayer>> read;
    int lineNumber = 0;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        ++lineNumber;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (Trimmed(line).empty())
            continue;
        const std::string code = line.substr(0, 3);
        if (line.size() > 3 && line[3] != ' ')
            return Refused(lineNumber,
                           "the record kind \"" + code + "\" is not followed by a space.");
        const std::string rest = line.size() > 4 ? line.substr(4) : std::string();
        if (HeaderCodes.count(code)) {
            file.headers.emplace_back(code, rest);
            file.headerLines.push_back(lineNumber);
            continue;
        }
        if (code == "XXR") {
            int rounds = 0;
            if (!Whole(Trimmed(rest), rounds) || rounds < 1)
                return Refused(lineNumber, "the number of rounds \"" + Trimmed(rest) +
                                               "\" is not a whole number above 0.");
            file.tournament.rounds = rounds;
            file.roundsGiven = true;
            file.roundsLine = lineNumber;
            continue;
        }
        if (code == "XXC") {
            const std::string colour = Trimmed(rest);
            if (colour != "white1" && colour != "black1")
                return Refused(lineNumber,
                               "the first colour \"" + colour + "\" is neither white1 nor black1.");
            file.tournament.firstColour = colour == "white1" ? eColour::White : eColour::Black;
            file.colourGiven = true;
            continue;
        }
        if (code != "001")
            return Refused(lineNumber, "the record kind \"" + code + "\" is not known.");

        cSwissEntrant entrant;
        cTrfPlayer player;
        player.line = lineNumber;
        if (!Whole(Field(line, NumberAt, NumberWidth), entrant.number) || entrant.number < 1)
            return Refused(lineNumber, "the pairing number \"" +
                                           Field(line, NumberAt, NumberWidth) +
                                           "\" is not a whole number above 0.");
        player.sex = SexAt < line.size() ? line[SexAt] : ' ';
        player.title = Field(line, TitleAt, TitleWidth);
        entrant.name = Field(line, NameAt, NameWidth);
        if (entrant.name.empty())
            return Refused(lineNumber, "the player's name is missing.");
        const std::string rating = Field(line, RatingAt, RatingWidth);
        if (!rating.empty() && !Whole(rating, entrant.rating))
            return Refused(lineNumber, "the rating \"" + rating + "\" is not a whole number.");
        player.federation = Field(line, FederationAt, FederationWidth);
        player.fideId = Field(line, IdAt, IdWidth);
        player.birthDate = Field(line, BirthAt, BirthWidth);
        const std::string points = Field(line, PointsAt, PointsWidth);
        if (points.empty())
            return Refused(lineNumber, "the points are missing.");
        if (!HalfPointsOf(points, player.halfPoints))
            return Refused(lineNumber,
                           "the points \"" + points + "\" are not a number of half points.");
        // Written back with one decimal, the points must still fit their four columns.
        if (player.halfPoints >= 200)
            return Refused(lineNumber, "the points \"" + points + "\" do not fit their column.");
        const std::string rank = Field(line, RankAt, RankWidth);
        if (!rank.empty() && !Whole(rank, player.rank))
            return Refused(lineNumber, "the rank \"" + rank + "\" is not a whole number.");
        for (size_t at = FirstRoundAt; at < line.size(); at += RoundWidth) {
            const int round = int((at - FirstRoundAt) / RoundWidth) + 1;
            std::string block = line.substr(at, 8);
            // A round paired but not yet played ends the line with its blank result.
            if (block.size() < 6)
                return Refused(lineNumber, "round " + std::to_string(round) + " is incomplete.");
            block.resize(8, ' ');
            if (line.substr(at - 2, 2) != "  " || block[4] != ' ' || block[6] != ' ')
                return Refused(lineNumber, "round " + std::to_string(round) +
                                               " does not stand in its columns.");
            cSwissGame game;
            const std::string opponent = Trimmed(block.substr(0, 4));
            if (!opponent.empty() && !Whole(opponent, game.opponent))
                return Refused(lineNumber, "the opponent \"" + opponent + "\" in round " +
                                               std::to_string(round) + " is not a pairing number.");
            const char colour = block[5];
            if (colour != 'w' && colour != 'b' && colour != '-' && colour != ' ')
                return Refused(lineNumber, "the colour '" + std::string(1, colour) + "' in round " +
                                               std::to_string(round) + " is not w, b or -.");
            game.colour = colour == 'w'   ? eColour::White
                          : colour == 'b' ? eColour::Black
                                          : eColour::None;
            game.result = block[7];
            if (!IsResultCode(game.result) && game.result != ' ')
                return Refused(lineNumber, "the result '" + std::string(1, game.result) +
                                               "' in round " + std::to_string(round) +
                                               " is not known.");
            if ((game.opponent != 0) != (game.colour != eColour::None))
                return Refused(lineNumber, "round " + std::to_string(round) +
                                               " has an opponent without a colour or a colour "
                                               "without an opponent.");
            entrant.games.push_back(game);
        }
        read.emplace_back(entrant, player);
    }

    // Pairing numbers run from 1 without gaps; every opponent points back.
    const int count = int(read.size());
    std::vector<int> slot(size_t(count) + 1, -1);
    for (int i = 0; i < count; ++i) {
        const int number = read[size_t(i)].first.number;
        const int line = read[size_t(i)].second.line;
        if (number > count)
            return Refused(line, "the pairing number " + std::to_string(number) +
                                     " is beyond the " + std::to_string(count) + " players.");
        if (slot[size_t(number)] >= 0)
            return Refused(line,
                           "the pairing number " + std::to_string(number) + " is given twice.");
        slot[size_t(number)] = i;
    }
    size_t rounds = 0;
    for (const auto &[entrant, player] : read)
        rounds = std::max(rounds, entrant.games.size());
    for (int i = 0; i < count; ++i) {
        const cSwissEntrant &entrant = read[size_t(i)].first;
        const int line = read[size_t(i)].second.line;
        for (size_t r = 0; r < entrant.games.size(); ++r) {
            const cSwissGame &game = entrant.games[r];
            const std::string where = " in round " + std::to_string(r + 1);
            if (game.opponent == 0) {
                if (game.result == ' ' ||
                    std::string("10=WDL").find(game.result) != std::string::npos)
                    return Refused(line, "a game without an opponent" + where + ".");
                continue;
            }
            if (game.opponent > count || game.opponent == entrant.number)
                return Refused(line, "the opponent " + std::to_string(game.opponent) + where +
                                         " is not another player.");
            const cSwissEntrant &other = read[size_t(slot[size_t(game.opponent)])].first;
            if (r >= other.games.size() || other.games[r].opponent != entrant.number ||
                other.games[r].colour != Opposite(game.colour))
                return Refused(line, "the opponent " + std::to_string(game.opponent) + where +
                                         " does not have this player " + "with the other colour.");
            if (game.result == ' ' && r + 1 != rounds)
                return Refused(line, "a game without a result" + where + ".");
        }
    }
    for (int number = 1; number <= count; ++number) {
        auto [entrant, player] = read[size_t(slot[size_t(number)])];
        file.tournament.entrants.push_back(entrant);
        file.players.push_back(player);
    }
    reading.ok = true;
    return reading;
}

std::string WriteTrf(const cTrfFile &file)
{
    std::string text;
    for (const auto &[code, header] : file.headers)
        text += code + " " + header + "\n";
    const auto &entrants = file.tournament.entrants;
    for (size_t i = 0; i < entrants.size(); ++i) {
        const cSwissEntrant &entrant = entrants[i];
        const cTrfPlayer player = i < file.players.size() ? file.players[i] : cTrfPlayer{};
        char points[16];
        std::snprintf(points, sizeof points, "%d.%d", player.halfPoints / 2,
                      player.halfPoints % 2 ? 5 : 0);
        std::string line =
            "001 " + Padded(std::to_string(entrant.number), NumberWidth, true) + " " +
            std::string(1, player.sex == '\0' ? ' ' : player.sex) +
            Padded(player.title, TitleWidth, true) + " " + Padded(entrant.name, NameWidth, false) +
            " " + Padded(entrant.rating ? std::to_string(entrant.rating) : "", RatingWidth, true) +
            " " + Padded(player.federation, FederationWidth, false) + " " +
            Padded(player.fideId, IdWidth, true) + " " +
            Padded(player.birthDate, BirthWidth, false) + " " + Padded(points, PointsWidth, true) +
            " " + Padded(player.rank ? std::to_string(player.rank) : "", RankWidth, true);
        for (const cSwissGame &game : entrant.games) {
            line += "  ";
            line += game.opponent ? Padded(std::to_string(game.opponent), 4, true) : "0000";
            line += ' ';
            line += ColourCode(game.colour);
            line += ' ';
            line += game.result;
        }
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        text += line + "\n";
    }
    if (file.roundsGiven)
        text += "XXR " + std::to_string(file.tournament.rounds) + "\n";
    if (file.colourGiven)
        text += std::string("XXC ") +
                (file.tournament.firstColour == eColour::Black ? "black1" : "white1") + "\n";
    return text;
}

} // namespace mSwiss
