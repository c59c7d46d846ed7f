// The texts by which tabs, kinds of files, commands and tags are known everywhere. They never change; any thread.
#pragma once

#include <QString>

namespace zolt {

/// Holds values alone; no object of it is made.
class Constants
{
public:
    Constants() = delete;

    // Labels of the tabs.
    static inline const QString DECODE = QStringLiteral("decode");
    static inline const QString ENCODE = QStringLiteral("encode");
    static inline const QString CHECKSUM = QStringLiteral("checksum");
    static inline const QString SHNTOOL = QStringLiteral("shntool");
    static inline const QString FIX_SBE = QStringLiteral("fix SBE");
    static inline const QString UTIL = QStringLiteral("util");
    static inline const QString LOSSY = QStringLiteral("lossy");
    static inline const QString ABOUT = QStringLiteral("about");
    static inline const QString TAGS = QStringLiteral("Tags");

    // Kinds of files, compared with an extension in upper case; also the names of the output formats.
    static inline const QString AIFF = QStringLiteral("AIFF");
    static inline const QString AIF = QStringLiteral("AIF");
    static inline const QString WAV = QStringLiteral("WAV");
    static inline const QString FLAC = QStringLiteral("FLAC");
    static inline const QString SHN = QStringLiteral("SHN");
    static inline const QString WV = QStringLiteral("WV");
    static inline const QString TTA = QStringLiteral("TTA");
    static inline const QString M4A = QStringLiteral("M4A");
    static inline const QString APE = QStringLiteral("APE");
    static inline const QString MD5 = QStringLiteral("MD5");
    static inline const QString ST5 = QStringLiteral("ST5");
    static inline const QString FFP = QStringLiteral("FFP");
    static inline const QString MP3 = QStringLiteral("MP3");
    static inline const QString TXT = QStringLiteral("TXT");
    static inline const QString CUE_EXT = QStringLiteral("CUE");

    // Commands of shntool.
    static inline const QString LEN = QStringLiteral("len");
    static inline const QString INFO = QStringLiteral("info");
    static inline const QString JOIN = QStringLiteral("join");
    static inline const QString SPLIT = QStringLiteral("split");
    static inline const QString CMP = QStringLiteral("cmp");
    static inline const QString CUE = QStringLiteral("cue");
    static inline const QString TRIM = QStringLiteral("trim");
    static inline const QString FIX = QStringLiteral("fix");
    static inline const QString STRIP = QStringLiteral("strip");
    static inline const QString PAD = QStringLiteral("pad");

    // Forms of the length report; the star is part of the label.
    static inline const QString NORMAL_LEN_OUTPUT = QStringLiteral("normal len output");
    static inline const QString LEN_BY_FILESET = QStringLiteral("show len for fileset");
    static inline const QString LEN_BY_DISC = QStringLiteral("show len by disc*");

    // Notifications.
    static inline const QString ZOLTTrackNamesEnteredNotification = QStringLiteral("ZOLTTrackNamesEnteredNotification");
    static inline const QString ZOLTMaxThreadsChangedNotification = QStringLiteral("ZOLTMaxThreadsChangedNotification");

    // Keys of tags. CUE_TITLE has the value of TITLE on purpose: one names the tag, the other a cue sheet's keyword.
    static inline const QString TITLE = QStringLiteral("TITLE");
    static inline const QString ARTIST = QStringLiteral("ARTIST");
    static inline const QString DATE = QStringLiteral("DATE");
    static inline const QString ALBUM = QStringLiteral("ALBUM");
    static inline const QString COMMENT = QStringLiteral("COMMENT");
    static inline const QString GENRE = QStringLiteral("GENRE");
    static inline const QString TRACKNUMBER = QStringLiteral("TRACKNUMBER");
    static inline const QString DISCNUMBER = QStringLiteral("DISCNUMBER");
    static inline const QString COMPOSER = QStringLiteral("COMPOSER");
    static inline const QString CUE_TITLE = QStringLiteral("TITLE");
    static inline const QString CUE_TRACK = QStringLiteral("TRACK");

    // Panes of the preferences.
    static inline const QString GeneralTextForPrefs = QStringLiteral("General");
    static inline const QString MetadataTextForPrefs = QStringLiteral("Metadata");
};

} // namespace zolt
