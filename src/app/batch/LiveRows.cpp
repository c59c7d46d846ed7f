#include "app/batch/LiveRows.h"

#include "app/batch/Console.h"
#include "engine/ZOLTTask.h"

#include <algorithm>
#include <cwchar>

#include <locale.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetweenDrawings = 50;
constexpr int barWidth = 20;

struct TerminalSize
{
    int columns = 80;
    int lines = 24;
};

TerminalSize terminalSize()
{
    winsize size = {};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0) return {};
    return {size.ws_col, size.ws_row};
}

/// For as long as it lives, characters are looked up in Unicode, whatever locale the program runs under.
class UnicodeCharacters
{
public:
    UnicodeCharacters() : before_(::uselocale(unicode())) {}
    ~UnicodeCharacters() { ::uselocale(before_); }
    UnicodeCharacters(const UnicodeCharacters&) = delete;
    UnicodeCharacters& operator=(const UnicodeCharacters&) = delete;

private:
    static locale_t unicode()
    {
        static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t());
        return locale;
    }
    locale_t before_;
};

int columnsOf(char32_t character)
{
    const UnicodeCharacters unicode;
    const int columns = ::wcwidth(wchar_t(character));
    return columns < 0 ? 1 : columns;
}

QString bar(const ProgressIndicator& indicator)
{
    const double span = indicator.maxValue() - indicator.minValue();
    const double part = span > 0 ? (indicator.doubleValue() - indicator.minValue()) / span : 0.0;
    const int filled = int(std::clamp(part, 0.0, 1.0) * barWidth);
    return u'[' + QString(filled, u'#') + QString(barWidth - filled, u'-') + u']';
}

QString colour(Outcome outcome)
{
    return outcome == Outcome::Complete ? u"\x1b[32m"_s : u"\x1b[31m"_s;
}

} // namespace

LiveRows::LiveRows()
{
    QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] { draw(); });
    tick_.start(millisecondsBetweenDrawings);
}

void LiveRows::added(const RunRow& row)
{
    open_.push_back(row.task);
}

void LiveRows::ended(const RunRow& row)
{
    const auto found = std::find(open_.begin(), open_.end(), row.task);
    if (found != open_.end()) open_.erase(found);
    above_ += colour(row.outcome) + outcomeLine(row) + u"\x1b[0m\n"_s;
}

void LiveRows::note(const QString& text)
{
    print(stdout, erased());
    drawn_.clear();
    RowPrinter::note(text);
    draw();
}

void LiveRows::finish()
{
    tick_.stop();
    print(stdout, erased() + above_);
    above_.clear();
    drawn_.clear();
}

void LiveRows::draw()
{
    const TerminalSize size = terminalSize();
    const QString now = region(size.columns, size.lines);
    if (above_.isEmpty() && now == drawn_) return;
    print(stdout, erased() + above_ + now);
    above_.clear();
    drawn_ = now;
}

QString LiveRows::erased() const
{
    const qsizetype lines = drawn_.count(u'\n');
    return lines == 0 ? QString() : u"\x1b[%1A\x1b[J"_s.arg(lines);
}

QString LiveRows::region(int width, int height)
{
    if (open_.empty()) return {};
    QString text;
    int room = height - 2; // one for the count, one for the cursor
    for (const auto& task : open_) {
        if (room <= 0) break;
        if (!task->isActive()) continue;
        text += runningLine(*task, width) + u'\n';
        --room;
    }
    return text + cutTo(u"%1 to go"_s.arg(open_.size()), width) + u'\n';
}

QString LiveRows::runningLine(const ZOLTTask& task, int width)
{
    const QString status = onOneLine(task.topTextField()->stringValue());
    return cutTo(bar(*task.progressIndicator()) + u' ' + onOneLine(nameOf(task)) + u"  "_s + status, width);
}

QString LiveRows::cutTo(const QString& text, int width)
{
    QString cut;
    int columns = 0;
    for (const char32_t character : text.toUcs4()) {
        columns += columnsOf(character);
        if (columns >= width) break; // the last column stays free: some terminals wrap behind it
        cut += QString::fromUcs4(&character, 1);
    }
    return cut;
}

} // namespace zolt::batch
