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
    for (const QString& format : {u"shn"_s, u"tta"_s, u"ape"_s}) {
        printed(u"shntool conv -q -o %1 a.wav && mkdir %1 && shntool conv -q -o wav -d %1 a.%1"_s.arg(format));
        EXPECT_TRUE(contents(format + u"/a.wav"_s) == wav) << format.toStdString();
    }
}

TEST_F(ShntoolPipes, MeasuresAndHashesWhatWasEncoded)
{
    printed(u"shorten a.wav a.shn && ttaenc a.wav -o a.tta && mac a.wav a.ape -c2000"_s);
    const std::string hash = printed(u"shntool hash -q a.wav"_s).substr(0, 32);
    for (const QString& name : {u"a.shn"_s, u"a.tta"_s, u"a.ape"_s}) {
        EXPECT_EQ(printed(u"shntool hash -q "_s + name).substr(0, 32), hash);
        EXPECT_THAT(printed(u"shntool len "_s + name), testing::HasSubstr("0:02.00"));
    }
}

TEST_F(ShntoolPipes, TurnsEachOfTheseFormatsIntoEachOther)
{
    const QByteArray wav = contents(u"a.wav"_s);
    const QStringList formats{u"shn"_s, u"tta"_s, u"ape"_s};
    for (const QString& from : formats) {
        printed(u"shntool conv -q -o %1 a.wav"_s.arg(from));
        for (const QString& to : formats) {
            if (from == to) continue;
            printed(
                u"rm -rf t && mkdir t && shntool conv -q -o %2 -d t a.%1 && shntool conv -q -o wav -d t t/a.%2"_s.arg(
                    from, to));
            EXPECT_TRUE(contents(u"t/a.wav"_s) == wav) << from.toStdString() << " to " << to.toStdString();
        }
    }
}

TEST_F(ShntoolPipes, FailsOnADamagedSource)
{
    printed(u"ttaenc a.wav -o a.tta && mac a.wav a.ape -c2000"_s);
    for (const QString& format : {u"tta"_s, u"ape"_s}) {
        QByteArray bytes = contents(u"a."_s + format);
        file(u"cut."_s + format, bytes.first(bytes.size() / 2));
        bytes[bytes.size() / 2] = char(bytes[bytes.size() / 2] ^ 0x10);
        file(u"flipped."_s + format, bytes);
        for (const QString& name : {u"cut."_s, u"flipped."_s})
            EXPECT_NE(shell(u"shntool conv -q -O always -o shn "_s + name + format).status, 0)
                << (name + format).toStdString();
    }
}
