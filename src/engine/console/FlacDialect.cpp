#include "engine/console/FlacDialect.h"

#include <QString>

namespace zolt {

namespace {

/// Compares bytes with what a form expects, from left to right.
struct Match
{
    QByteArrayView bytes;
    qsizetype at = 0;
    bool fits = true;

    bool cutShort() const { return fits && at > bytes.size(); }
    void digits(qsizetype least, qsizetype most)
    {
        const qsizetype start = at;
        while (fits && at < bytes.size() && at - start < most && bytes[at] >= '0' && bytes[at] <= '9')
            ++at;
        if (at - start >= least) return;
        if (at < bytes.size())
            fits = false;
        else
            at = bytes.size() + 1;
    }
    void text(QByteArrayView expected)
    {
        for (const char byte : expected) {
            if (fits && at < bytes.size() && bytes[at] != byte) fits = false;
            if (fits) at = std::min(at + 1, bytes.size() + 1);
        }
    }
};

bool endsLine(char byte)
{
    return byte == '\b' || byte == '\n' || byte == '\r';
}

/// Takes what stands behind the last line end off the bytes.
QByteArray takeLine(QByteArray& bytes)
{
    const auto lineEnd = std::find_if(bytes.rbegin(), bytes.rend(), endsLine);
    const QByteArray line = bytes.last(lineEnd - bytes.rbegin());
    bytes.chop(line.size());
    return line;
}

/// The bytes up to and with the next one behind which an update may start.
QByteArrayView runOf(QByteArrayView bytes)
{
    const auto end = std::find_if(bytes.begin(), bytes.end(), [](char byte) { return byte == ' ' || endsLine(byte); });
    return bytes.first(std::min<qsizetype>(end - bytes.begin() + 1, bytes.size()));
}

Match matchUpdate(QByteArrayView bytes, FlacDialect::Update form)
{
    Match match{bytes};
    match.digits(1, 3);
    match.text("% complete");
    if (form == FlacDialect::Update::Percent) return match;
    match.text(", ratio=");
    match.digits(1, 3);
    match.text(".");
    match.digits(3, 3);
    return match;
}

} // namespace

std::unique_ptr<FlacDialect> FlacDialect::forArguments(const QStringList& arguments)
{
    const bool encodes = !arguments.contains(QLatin1String("-d")) && !arguments.contains(QLatin1String("-t"));
    return std::make_unique<FlacDialect>(encodes ? Update::PercentRatio : Update::Percent);
}

QByteArray FlacDialect::complete(const QByteArray& piece)
{
    QByteArray bytes = std::exchange(held_, {}) + piece;
    if (bytes.endsWith(": ")) held_ = takeLine(bytes);
    earlier_ = line_.size();
    completed_.clear();
    for (qsizetype at = 0; at < bytes.size();) {
        const QByteArrayView ahead = QByteArrayView(bytes).sliced(at);
        const Match match = mayStartUpdate() ? matchUpdate(ahead, update_) : Match{ahead, 0, false};
        if (match.cutShort()) {
            held_.prepend(ahead.toByteArray());
            break;
        }
        const QByteArrayView next = match.fits ? ahead.first(match.at) : runOf(ahead);
        match.fits ? passUpdate(next) : pass(next);
        at += next.size();
    }
    return std::exchange(completed_, {});
}

QByteArray FlacDialect::rest()
{
    return std::exchange(held_, {});
}

bool FlacDialect::mayStartUpdate() const
{
    return line_.isEmpty() || line_.endsWith(' ');
}

void FlacDialect::pass(QByteArrayView run)
{
    completed_ += run;
    if (endsLine(run.back())) {
        line_.resize(0); // which keeps its room
        earlier_ = 0;
    } else {
        line_ += run;
    }
}

void FlacDialect::passUpdate(QByteArrayView update)
{
    const qsizetype here = line_.size() - earlier_; // how much of the words stands in this piece already
    if (!line_.isEmpty()) prefix_ = line_;
    completed_.insert(completed_.size() - here, prefix_.first(prefix_.size() - here));
    completed_ += update;
    line_ += update;
    earlier_ = 0;
}

} // namespace zolt
