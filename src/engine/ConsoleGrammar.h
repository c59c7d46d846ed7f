// How the console text of a tool is read, as data: one row a tool and what it is asked to do.
#pragma once

#include "platform/text/Text.h"

#include <QList>
#include <QStringList>

namespace zolt {

class ZOLTTask;

/// What one piece of console text says, and what a task does with it.
struct ConsoleReading
{
    static constexpr double none = -1.0; ///< a piece without the marker; the bar takes it too

    double value = none;
    OptionalText digits;       ///< the number as the tool wrote it; absent without the marker
    OptionalText second;       ///< the rest that some tools print with it: a ratio, seconds
    OptionalText status;       ///< the new status line; absent where it stays
    std::optional<double> bar; ///< absent where the bar stays
    QString text;              ///< the piece, trimmed
    QStringList kept;          ///< for the results, in this order
    bool failed = false;       ///< one of the texts was there that make a task fail
};

/// One row; aggregates of facts, read by any thread.
struct ConsoleGrammar
{
    /// A text is split at `at`, and piece number `piece` goes on.
    struct Step
    {
        QString at;
        qsizetype piece;
    };
    enum class Second {
        None,
        Ratio,          ///< the text from "ratio=" to the end; it must be there with the marker
        ScannedSeconds, ///< both numbers are found by scanning, not by steps: "12.3% (4 seconds remaining"
    };
    enum class Slot {
        First, ///< the set's first slot, whichever task reads
        Own,   ///< the task's own
    };

    CharacterSet trim = CharacterSet::Backspace;
    bool trims = true;
    QStringList markers; ///< a piece with all of them holds progress
    QList<Step> steps;   ///< from the piece to the number's text
    Second second = Second::None;
    QString status;            ///< with {digits}, {value} (six decimals), {second} and {subject} in it
    bool statusAlways = false; ///< also for a piece without the marker
    bool barAlways = true;     ///< -1 for a piece without the marker
    bool namesRow = true;      ///< the row's name line shows the title again after each piece
    QStringList headWords;     ///< a piece with one of them adds what stands before its first ": " to the results
    QStringList closingWords;  ///< a piece with one of them is added once more
    int appended = 1;          ///< how often every piece is added
    Slot slot = Slot::First;
    QList<QStringList> errorTexts; ///< a piece with all texts of one list makes the task fail

    /// @param output   one piece; absent where its bytes were not valid UTF-8, which reads as an empty one
    /// @param subject  what {subject} in the status stands for
    /// @throws RangeException where the marker is there and what a step or the ratio looks for is not
    ConsoleReading read(const OptionalText& output, const QString& subject = {}) const;

    /// Puts a reading on the task's row and into its results, and sets its `error`.
    void show(const ConsoleReading& reading, ZOLTTask& task) const;

    /// Both: what the hook of most tasks does.
    void follow(const OptionalText& output, ZOLTTask& task, const QString& subject = {}) const
    {
        show(read(output, subject), task);
    }

    static const ConsoleGrammar flacDecode, flacEncode, flacTest, flacToWav;
    static const ConsoleGrammar wavpackDecode, wavpackEncode, wavpackTest;
    static const ConsoleGrammar ttaDecode, ttaEncode, ttaTest;
    static const ConsoleGrammar apeDecode, apeEncode, apeTest, apeToWav;
    static const ConsoleGrammar shnDecode, shnEncode, shnToFlac;
    static const ConsoleGrammar shnToWavDecoding, shnToWavEncoding;
    static const ConsoleGrammar mp3Encode;
    static const ConsoleGrammar shntoolJoin, shntoolPad, shntoolSplit, shntoolStrip, shntoolTrim;

private:
    void readProgress(ConsoleReading& reading) const;
    QString filled(const ConsoleReading& reading, const QString& subject) const;
    QStringList keptOf(const QString& text) const;
};

} // namespace zolt
