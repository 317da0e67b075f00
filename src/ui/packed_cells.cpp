#include "ui/packed_cells.h"

void cPackedCells::Clear(int columns)
{
    columns_ = columns;
    units_.clear();
    units_.shrink_to_fit();
    starts_.assign(1, 0);
    starts_.shrink_to_fit();
}

void cPackedCells::Reserve(std::size_t rows, std::size_t characters)
{
    starts_.reserve(rows * std::size_t(columns_) + 1);
    units_.reserve(characters);
}

void cPackedCells::Append(std::u16string_view text)
{
    units_.insert(units_.end(), text.begin(), text.end());
}

void cPackedCells::Append(const QString &text)
{
    Append(View(text));
}

void cPackedCells::AppendUtf8(std::string_view text)
{
    // Plain ASCII, which is most names in a register, widens byte for byte in one pass
    // that the compiler can run many bytes at a time; anything else is decoded.
    const std::size_t start = units_.size();
    units_.resize(start + text.size());
    char16_t *unit = units_.data() + start;
    unsigned char seen = 0;
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        seen |= value;
        *unit++ = char16_t(value);
    }
    if (seen >= 0x80) {
        units_.resize(start);
        Append(QString::fromUtf8(text.data(), qsizetype(text.size())));
    }
}

void cPackedCells::EndCell()
{
    starts_.push_back(quint32(units_.size()));
}

QString cPackedCells::Text(int row, int column) const
{
    return Text(View(row, column));
}

QString cPackedCells::Text(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar *>(text.data()), qsizetype(text.size()));
}
