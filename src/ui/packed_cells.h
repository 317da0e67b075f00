#pragma once

#include <QString>
#include <QtGlobal>

#include <string_view>
#include <vector>

// The cells of a list's rows, their texts laid end to end in one buffer: a list of a
// hundred thousand rows then costs a handful of allocations instead of several a row,
// and is read, sorted and freed in a moment.
class cPackedCells
{
public:
    // No rows; each row to come has the number of columns given.
    void Clear(int columns);
    void Reserve(std::size_t rows, std::size_t characters);

    // Text added to the cell being written; EndCell closes it, and every `columns`
    // cells make a row.
    void Append(std::u16string_view text);
    void Append(const QString &text);
    void AppendUtf8(std::string_view text);
    void EndCell();
    void AddCell(const QString &text)
    {
        Append(text);
        EndCell();
    }

    int Columns() const { return columns_; }
    int Rows() const
    {
        return columns_ > 0 ? int((starts_.size() - 1) / std::size_t(columns_)) : 0;
    }
    std::u16string_view View(int row, int column) const
    {
        const std::size_t cell = std::size_t(row) * std::size_t(columns_) + std::size_t(column);
        return std::u16string_view(units_.data() + starts_[cell],
                                   starts_[cell + 1] - starts_[cell]);
    }
    QString Text(int row, int column) const;
    // A text of the buffer, or any UTF-16 text, as a QString, and a QString's text as
    // a view without a copy.
    static QString Text(std::u16string_view text);
    static std::u16string_view View(const QString &text)
    {
        return std::u16string_view(reinterpret_cast<const char16_t *>(text.utf16()),
                                   std::size_t(text.size()));
    }

private:
    int columns_ = 0;
    std::vector<char16_t> units_;
    // Where each cell starts, and one more for the end of the last.
    std::vector<quint32> starts_{0};
};
