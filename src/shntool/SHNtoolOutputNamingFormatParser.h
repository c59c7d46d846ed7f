// Fills the user's line format for lists of tracks.
#pragma once

#include <QString>

namespace zolt {

class SHNtoolOutputNamingFormatParser
{
public:
    /// Reads the format from the setting "shntoolNamesFormat".
    SHNtoolOutputNamingFormatParser();

    /// What of a line belongs to the time, with the total in its place, and a line end: with a dash between name and
    /// time, the dash and the total. @throws RangeException for an empty format
    QString getFormattedTotalLine(const QString& total) const;
    /// The line of one track, with a line end. Words that come in with a name are filled in turn.
    /// @throws RangeException for an empty format
    QString getFormattedLineWithNameTimeTrackNumber(const QString& name, const QString& time,
                                                    const QString& trackNumber) const;

private:
    QString format() const;

    QString shntoolNamesFormat_;
};

} // namespace zolt
