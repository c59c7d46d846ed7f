#include "RegexTesting.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QString unitsOf(RegexText text)
{
    std::vector<char16_t> units(static_cast<std::size_t>(text.length()) + 1, u'#');
    text.copyUnits(units.data());
    EXPECT_EQ(units.back(), u'#') << "wrote past the end";
    return QString::fromUtf16(units.data(), text.length());
}

} // namespace

TEST(RegexText, EncodedTextHasTheUnitsOfItsCharacters)
{
    const EncodedText latin1 = latin1Text("na\xEFve");
    const EncodedText utf8 = *EncodedText::fromUtf8("a \xE2\x82\xAC \xF0\x9D\x84\x9E");
    EXPECT_EQ(unitsOf(latin1), u"na\u00EFve"_s);
    EXPECT_EQ(unitsOf(utf8), u"a \u20AC \U0001D11E"_s);
    EXPECT_EQ(utf8.length(), 6);
    EXPECT_EQ(RegexText(utf8).text({2, 1}), u"\u20AC"_s);
    EXPECT_EQ(RegexText(latin1).text({2, 3}), u"\u00EFve"_s);
    EXPECT_EQ(unitsOf(u"plain"_s), u"plain"_s);
}

TEST(RegexText, BytesThatAreNotUtf8AreNoText)
{
    EXPECT_FALSE(EncodedText::fromUtf8("cut \xE2\x82"));
    EXPECT_TRUE(EncodedText::fromUtf8(""));
}

TEST(RegexText, EqualTextsOfEveryKindHaveOneHash)
{
    const QString plainText = u"caf\u00E9"_s;
    const EncodedText latin1Bytes = latin1Text("caf\xE9");
    const EncodedText utf8Bytes = *EncodedText::fromUtf8("caf\xC3\xA9");
    const RegexText plain = plainText, latin1 = latin1Bytes, utf8 = utf8Bytes;
    EXPECT_TRUE(plain == latin1 && latin1 == utf8 && utf8 == plain);
    EXPECT_EQ(plain.hash(), latin1.hash());
    EXPECT_EQ(plain.hash(), utf8.hash());
    EXPECT_FALSE(plain == RegexText(u"cafe"_s));
    EXPECT_FALSE(RegexText(u""_s) == RegexText());
}

TEST(RegexText, IdentityIsTheSharedDataWithTheLength)
{
    const QString text = ownText(u"some text");
    const QString shared = text;
    EXPECT_TRUE(RegexText(text).isSame(shared));
    EXPECT_FALSE(RegexText(text).isSame(ownText(u"some text")));
    EXPECT_FALSE(RegexText(text).isSame(QString::fromRawData(text.constData(), 4)));
    const EncodedText bytes = latin1Text("some text");
    EXPECT_TRUE(RegexText(bytes).isSame(EncodedText(bytes)));
    EXPECT_FALSE(RegexText(bytes).isSame(latin1Text("some text")));
}

TEST(RegexText, KeptTextSharesDataOrCopiesWhatTheTextDoesNotOwn)
{
    KeptText kept;
    const QString borrowed = u"borrowed"_s; // a literal owns nothing
    kept.keep(borrowed);
    EXPECT_FALSE(kept.text().isSame(borrowed));
    EXPECT_TRUE(kept.text() == RegexText(borrowed));
    const QString own = ownText(u"own data");
    kept.keep(own);
    EXPECT_TRUE(kept.text().isSame(own));
    const EncodedText bytes = latin1Text("bytes");
    kept.keep(bytes);
    EXPECT_TRUE(kept.text().isSame(bytes));
    kept.keep(u""_s);
    EXPECT_TRUE(kept.text().isPresent());
    kept.drop();
    EXPECT_FALSE(kept.text().isPresent());
}

TEST(RegexText, EncodedTextOwnsItsBytes)
{
    char bytes[] = "bytes";
    const EncodedText encoded = latin1Text(QByteArray::fromRawData(bytes, 5));
    bytes[0] = '#';
    EXPECT_EQ(RegexText(encoded).text(), u"bytes"_s);
}

TEST(RegexText, AbsentTextIsNotAnEmptyOne)
{
    EXPECT_FALSE(RegexText(OptionalText()).isPresent());
    EXPECT_FALSE(RegexText(std::nullopt).isPresent());
    EXPECT_TRUE(RegexText(QString()).isPresent());
    EXPECT_TRUE(RegexText(OptionalText(u""_s)).isPresent());
}
