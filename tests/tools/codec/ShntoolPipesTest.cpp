// The packaged shntool calls the companions by its own command lines.

#include "codec/CompanionFixture.h"

using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ShntoolPipes : public Companions
{
protected:
    void SetUp() override { file(u"a.wav"_s, makeWav({.samples = 88200, .sound = Sound::Sines}, random_)); }

    std::string printed(const QString& script) const
    {
        const Outcome outcome = shell(script);
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        return outcome.output.toStdString();
    }
};

} // namespace

TEST_F(ShntoolPipes, ConvertsThereAndBack)
{
    const QByteArray wav = contents(u"a.wav"_s);
    for (const QString& format : {u"shn"_s, u"tta"_s}) {
        printed(u"shntool conv -q -o %1 a.wav && mkdir %1 && shntool conv -q -o wav -d %1 a.%1"_s.arg(format));
        EXPECT_TRUE(contents(format + u"/a.wav"_s) == wav) << format.toStdString();
    }
}

TEST_F(ShntoolPipes, MeasuresAndHashesWhatWasEncoded)
{
    printed(u"shorten a.wav a.shn && ttaenc a.wav -o a.tta"_s);
    const std::string hash = printed(u"shntool hash -q a.wav"_s).substr(0, 32);
    for (const QString& name : {u"a.shn"_s, u"a.tta"_s}) {
        EXPECT_EQ(printed(u"shntool hash -q "_s + name).substr(0, 32), hash);
        EXPECT_THAT(printed(u"shntool len "_s + name), testing::HasSubstr("0:02.00"));
    }
}

TEST_F(ShntoolPipes, ReadsMonkeysAudio)
{
    const auto ape = sharedFixture(u"mac-399.ape"_s);
    if (!ape) GTEST_SKIP() << "left out: no folder of foreign files beside this checkout";
    file(u"a.ape"_s, *ape);
    EXPECT_THAT(printed(u"shntool len a.ape"_s), testing::HasSubstr("626268 B"));
    printed(u"mkdir o && shntool conv -q -o wav -d o a.ape"_s);
    EXPECT_TRUE(contents(u"o/a.wav"_s).sliced(44) == decodedByFfmpeg(u"a.ape"_s, u"s16le"_s));
}

TEST_F(ShntoolPipes, FailsOnADamagedSource)
{
    printed(u"ttaenc a.wav -o a.tta"_s);
    QByteArray tta = contents(u"a.tta"_s);
    file(u"cut.tta"_s, tta.first(tta.size() / 2));
    EXPECT_NE(shell(u"shntool conv -q -O always -o shn cut.tta"_s).status, 0);
}
