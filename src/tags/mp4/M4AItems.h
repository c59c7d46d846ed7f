// The items of an M4A file that the tags travel in, coded and decoded by the tag library.
//
// The library never sees the user's file. It would follow counts and sizes of broken files far beyond their ends,
// write over a file in place, and lose every item of a kind that it does not know. It gets a small file made up in
// memory instead, which holds nothing but the items asked for, each of which was found whole before.
#pragma once

#include "platform/text/Text.h"
#include "tags/mp4/Mp4Box.h"

#include <memory>

namespace zolt {

/// A number and its total, as in "track 7 of 12".
struct NumberPair
{
    quint16 number = 0;
    quint16 total = 0;
};

/// Reads the items of an index. Item names are their four characters, the copyright sign as the byte A9.
class M4AItemReader
{
public:
    /// Takes copies of what it needs. An item that is not whole counts as missing.
    explicit M4AItemReader(const Mp4Box& index);
    ~M4AItemReader();

    /// The first value of a text item; absent if the file has none.
    OptionalText text(const char* name) const;

    /// 0 and 0 if the file has none.
    NumberPair numbers(const char* name) const;

    /// The bytes of the first picture; absent if there is no picture.
    std::optional<QByteArray> firstPicture() const;

private:
    struct Contents;
    const std::unique_ptr<Contents> contents_;
};

/// Collects items and puts them into an index, in the place of those of the same kind. All others stay byte for byte.
class M4AItemWriter
{
public:
    M4AItemWriter();
    ~M4AItemWriter();

    void setText(const char* name, const QString& text);
    void setNumbers(const char* name, NumberPair numbers);
    /// A picture as PNG bytes, which takes the place of the first one.
    void setFirstPicture(const QByteArray& bytes);

    /// Changes the index; makes a list of items where there is none. @throws Mp4Error
    void apply(Mp4Box& index);

private:
    struct Contents;
    const std::unique_ptr<Contents> contents_;
};

} // namespace zolt
