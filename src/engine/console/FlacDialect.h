// flac prints the file's name once and from then on only backspaces and numbers.
#pragma once

#include "engine/console/ConsoleDialect.h"

namespace zolt {

/// Gives every "36% complete" the words that stood before the first one ("a.flac: ", "a.flac: testing, "), also where
/// those came in an earlier piece. A name that ends a piece waits for what follows it, and a number that a piece cuts
/// in two for its other half. All other bytes pass.
class FlacDialect : public ConsoleDialect
{
public:
    enum class Update {
        Percent,     ///< "36% complete", as decoding and testing print it
        PercentRatio ///< "36% complete, ratio=0.481", as encoding prints it
    };
    explicit FlacDialect(Update update) : update_(update) {}
    /// By what flac is asked to do: "-d" and "-t" print no ratio.
    static std::unique_ptr<FlacDialect> forArguments(const QStringList& arguments);

    QByteArray complete(const QByteArray& piece) override;
    QByteArray rest() override;

private:
    bool mayStartUpdate() const;
    void pass(QByteArrayView run);
    void passUpdate(QByteArrayView update);

    const Update update_;
    QByteArray held_;       // what waits for the next piece
    QByteArray prefix_;     // what stood before the last update that was printed behind words
    QByteArray line_;       // what stands before the next byte since the last line end or backspace
    qsizetype earlier_ = 0; // how much of line_ came in earlier pieces
    QByteArray completed_;
};

} // namespace zolt
