#include "checksum/ChecksumKinds.h"

#include "platform/text/Text.h"
#include "shell/Constants.h"

namespace zolt::checksumKinds {

namespace {

using C = Constants;

QStringList filesOf(const QStringList& files, const QStringList& kinds)
{
    QStringList found = files;
    found.removeIf([&](const QString& file) { return !kinds.contains(kindOf(file)); });
    return found;
}

} // namespace

QString kindOf(const QString& file)
{
    return path::extension(file).toUpper();
}

QStringList flacFiles(const QStringList& files)
{
    return filesOf(files, {C::FLAC});
}

QStringList hashableFiles(const QStringList& files)
{
    return filesOf(files, {C::FLAC, C::WAV, C::AIFF, C::AIF, C::SHN, C::APE, C::WV, C::TTA});
}

QString listKind(const QString& file)
{
    const QString kind = kindOf(file);
    if (kind == C::MD5 || kind == C::ST5 || kind == C::FFP) return kind;
    const bool fingerprints = kind == C::TXT && kindOf(path::deletingExtension(file)) == C::FFP;
    return fingerprints ? C::FFP : QString();
}

} // namespace zolt::checksumKinds
