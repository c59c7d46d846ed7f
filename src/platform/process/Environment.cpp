#include "platform/process/Environment.h"

#include "platform/desktop/ToolsDirectory.h"
#include "platform/files/FileNames.h"

#include <cstring>
#include <mutex>

#include <unistd.h>

namespace zolt {

namespace {

const QString pathKey = QStringLiteral("PATH");
const QString unbufferedKey = QStringLiteral("NSUnbufferedIO");

QByteArray environmentBytes()
{
    QByteArray all;
    for (char** entry = environ; entry && *entry; ++entry)
        all.append(*entry).append('\0');
    return all;
}

/// Whether environmentBytes() would give these; without making them.
bool isEnvironment(const QByteArray& bytes)
{
    const char* at = bytes.cbegin();
    for (char** entry = environ; entry && *entry; ++entry) {
        const std::size_t size = std::strlen(*entry) + 1;
        if (std::size_t(bytes.cend() - at) < size || std::memcmp(at, *entry, size) != 0) return false;
        at += size;
    }
    return at == bytes.cend();
}

Environment parsed(const QByteArray& bytes)
{
    Environment environment;
    for (const QByteArray& entry : bytes.split('\0')) {
        const qsizetype equals = entry.indexOf('=', 1);
        if (equals < 0) continue;
        environment.insert(nameOfBytes(entry.first(equals)), nameOfBytes(entry.sliced(equals + 1)));
    }
    return environment;
}

using Entries = std::shared_ptr<const std::vector<QByteArray>>;

Entries encoded(const Environment& environment)
{
    std::vector<QByteArray> entries;
    entries.reserve(std::size_t(environment.size()));
    for (auto entry = environment.begin(); entry != environment.end(); ++entry)
        entries.push_back(bytesOfName(entry.key()) + '=' + bytesOfName(entry.value()));
    return std::make_shared<const std::vector<QByteArray>>(std::move(entries));
}

/// The last map made and what it was made from, so that equal inputs give maps that share their data.
struct Remembered
{
    std::mutex mutex;
    QByteArray bytes;
    QString tools;
    Environment environment;
    Environment unbuffered;
    Entries entries; // of the latter
};

Remembered& remembered()
{
    static Remembered* const state = new Remembered; // task threads may ask until the very end
    return *state;
}

} // namespace

Environment childEnvironment()
{
    const QString tools = toolsDirectory();
    Remembered& last = remembered();
    const std::lock_guard guard(last.mutex);
    if (last.environment.isEmpty() || tools != last.tools || !isEnvironment(last.bytes)) {
        last.bytes = environmentBytes();
        last.tools = tools;
        last.environment = parsed(last.bytes);
        appendDirectoryToPath(last.environment, tools);
        last.unbuffered = last.environment;
        last.unbuffered.insert(unbufferedKey, QStringLiteral("YES"));
        last.entries = encoded(last.unbuffered);
    }
    return last.environment;
}

void setUnbufferedIO(Environment& environment)
{
    {
        Remembered& last = remembered();
        const std::lock_guard guard(last.mutex);
        if (environment.isSharedWith(last.environment)) {
            environment = last.unbuffered;
            return;
        }
    }
    environment.insert(unbufferedKey, QStringLiteral("YES"));
}

Entries environmentEntries(const Environment& environment)
{
    {
        Remembered& last = remembered();
        const std::lock_guard guard(last.mutex);
        if (environment.isSharedWith(last.unbuffered)) return last.entries;
    }
    return encoded(environment);
}

void appendDirectoryToPath(Environment& environment, const QString& directory)
{
    environment.insert(pathKey, environment.value(pathKey) + u':' + directory);
}

} // namespace zolt
