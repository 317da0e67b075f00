#pragma once

#include <QString>

#include <memory>

class cPlayer;
struct cGradeBasis;

// One board of one round: a pairing with or without its result. A side that is none
// is stored as 0; a game with one side is a bye.
//
// Result codes: W white won, D drawn, B black won, Z no points to either side,
// N no result (entered as a blank), "" no result yet; C comes only from imported data
// and is known to the display alone.
class cResult
{
public:
    QString Result() const { return result_; }
    void setResult(const QString &value);
    // "1 - 0", "½ - ½", "0 - 1", "0 - 0", five blanks for N and C, "" otherwise;
    // the code is read in capitals. Setting maps those texts back to their codes, an
    // empty text to N and anything else to "".
    QString DisplayResult() const;
    void setDisplayResult(const QString &value);
    // The signs of the cross table: "+", "-", "=" or a blank, from the code as it stands.
    QString DisplayWhiteResult() const;
    QString DisplayBlackResult() const;
    // The grading points each side gains from this game: the opponent's grade held
    // within 40 points of the player's own, then 50 more for a win or 50 less for a
    // loss; 0 for a "Z" game. The basis overloads serve passes over many rows.
    qint16 WhiteGradePoints() const;
    qint16 WhiteGradePoints(const cGradeBasis &basis) const;
    qint16 BlackGradePoints() const;
    qint16 BlackGradePoints(const cGradeBasis &basis) const;
    std::shared_ptr<cPlayer> Black() const { return black_; }
    void setBlack(std::shared_ptr<cPlayer> player) { black_ = std::move(player); }
    std::shared_ptr<cPlayer> White() const { return white_; }
    void setWhite(std::shared_ptr<cPlayer> player) { white_ = std::move(player); }
    QString Board() const { return board_; }
    void setBoard(const QString &value);
    QString Round() const { return round_; }
    void setRound(const QString &value);
    // Sets all five at once, untrimmed, as they come from the file.
    void Load(const QString &round, const QString &board, std::shared_ptr<cPlayer> white,
              std::shared_ptr<cPlayer> black, const QString &result);
    // The points of each side. The code is taken as it stands; one outside W, D, B,
    // Z, N and "" is a fatal fault, since no score can be made of it.
    float WhiteScore() const;
    float BlackScore() const;

private:
    QString round_;
    QString board_;
    std::shared_ptr<cPlayer> white_;
    std::shared_ptr<cPlayer> black_;
    QString result_;
};
