#include "Contenders.h"

#include "regex/RegularExpressions.h"

#include <unicode/uregex.h>

#include <QRegularExpression>

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

namespace zolt {

namespace {

const UChar* unitsOf(const QString& text)
{
    return reinterpret_cast<const UChar*>(text.constData());
}

/// An expression that somebody holds by hand, as one would write it for one pattern in one place.
class HeldIcu
{
public:
    explicit HeldIcu(const QString& pattern)
    {
        icu_ = uregex_open(unitsOf(pattern), static_cast<int32_t>(pattern.size()), 0, nullptr, &status_);
    }
    ~HeldIcu() { uregex_close(icu_); }
    HeldIcu(const HeldIcu&) = delete;
    HeldIcu& operator=(const HeldIcu&) = delete;

    QString match(const QString& piece)
    {
        uregex_setText(icu_, unitsOf(piece), static_cast<int32_t>(piece.size()), &status_);
        if (!uregex_find(icu_, 0, &status_)) return QString();
        const int start = uregex_start(icu_, 0, &status_);
        return piece.mid(start, uregex_end(icu_, 0, &status_) - start);
    }

    QString replace(const QString& piece, const QString& replacement)
    {
        uregex_setText(icu_, unitsOf(piece), static_cast<int32_t>(piece.size()), &status_);
        UChar room[1024];
        const int32_t length = uregex_replaceAll(icu_, unitsOf(replacement), static_cast<int32_t>(replacement.size()),
                                                 room, 1024, &status_);
        return QString(reinterpret_cast<QChar*>(room), length);
    }

private:
    UErrorCode status_ = U_ZERO_ERROR;
    URegularExpression* icu_;
};

/// PCRE2 with its just-in-time compiler, held by hand.
class HeldPcre
{
public:
    explicit HeldPcre(const QString& pattern)
    {
        int error = 0;
        PCRE2_SIZE offset = 0;
        code_ =
            pcre2_compile(units(pattern), static_cast<PCRE2_SIZE>(pattern.size()), PCRE2_UTF, &error, &offset, nullptr);
        pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE);
        data_ = pcre2_match_data_create_from_pattern(code_, nullptr);
    }
    ~HeldPcre()
    {
        pcre2_match_data_free(data_);
        pcre2_code_free(code_);
    }
    HeldPcre(const HeldPcre&) = delete;
    HeldPcre& operator=(const HeldPcre&) = delete;

    QString match(const QString& piece)
    {
        if (pcre2_match(code_, units(piece), static_cast<PCRE2_SIZE>(piece.size()), 0, PCRE2_NO_UTF_CHECK, data_,
                        nullptr) < 0) {
            return QString();
        }
        const PCRE2_SIZE* found = pcre2_get_ovector_pointer(data_);
        return piece.mid(static_cast<qsizetype>(found[0]), static_cast<qsizetype>(found[1] - found[0]));
    }

    QString replace(const QString& piece, const QString& replacement)
    {
        PCRE2_UCHAR room[1024];
        PCRE2_SIZE length = 1024;
        const int count = pcre2_substitute(
            code_, units(piece), static_cast<PCRE2_SIZE>(piece.size()), 0, PCRE2_SUBSTITUTE_GLOBAL | PCRE2_NO_UTF_CHECK,
            data_, nullptr, units(replacement), static_cast<PCRE2_SIZE>(replacement.size()), room, &length);
        return count > 0 ? QString(reinterpret_cast<QChar*>(room), static_cast<qsizetype>(length)) : piece;
    }

private:
    static PCRE2_SPTR units(const QString& text) { return reinterpret_cast<PCRE2_SPTR>(text.constData()); }

    pcre2_code* code_;
    pcre2_match_data* data_;
};

qsizetype sizeOf(const QString& text)
{
    return text.size();
}
qsizetype sizeOf(const OptionalText& text)
{
    return text ? text->size() : 0;
}

template <typename Search> std::function<qsizetype(const QStringList&)> overAll(Search search)
{
    return [search](const QStringList& pieces) {
        qsizetype total = 0;
        for (const QString& piece : pieces)
            total += sizeOf(search(piece));
        return total;
    };
}

Contender cached(const QString& name, const QString& pattern, const QString& replacement)
{
    return {name, overAll([=](const QString& piece) { return stringByMatching(piece, pattern); }),
            overAll([=](const QString& piece) {
                return stringByReplacingOccurrencesOfRegexWithString(piece, pattern, replacement);
            })};
}

template <typename Held> Contender held(const QString& name, const QString& pattern, const QString& replacement)
{
    const auto expression = std::make_shared<Held>(pattern);
    return {name, overAll([=](const QString& piece) { return expression->match(piece); }),
            overAll([=](const QString& piece) { return expression->replace(piece, replacement); })};
}

Contender compiledEachTime(const QString& pattern, const QString& replacement)
{
    return {QStringLiteral("ICU compiled each time"),
            overAll([=](const QString& piece) { return HeldIcu(pattern).match(piece); }),
            overAll([=](const QString& piece) { return HeldIcu(pattern).replace(piece, replacement); })};
}

Contender qtExpression(const QString& pattern, const QString& replacement)
{
    const QRegularExpression expression(pattern);
    return {QStringLiteral("QRegularExpression, held"),
            overAll([=](const QString& piece) { return expression.match(piece).captured(0); }),
            overAll([=](const QString& piece) { return QString(piece).replace(expression, replacement); })};
}

} // namespace

std::vector<Contender> contenders(const QString& pattern, const QString& replacement)
{
    // A text with data of its own is found as the entry used last, a literal by the lookaside.
    const QString own(pattern.constData(), pattern.size());
    return {
        cached(QStringLiteral("cached, entry used last"), own, replacement),
        held<HeldIcu>(QStringLiteral("ICU held by hand"), own, replacement),
        cached(QStringLiteral("cached, lookaside"), pattern, replacement),
        compiledEachTime(own, replacement),
        qtExpression(own, replacement),
        held<HeldPcre>(QStringLiteral("PCRE2 with JIT, held"), own, replacement),
    };
}

} // namespace zolt
