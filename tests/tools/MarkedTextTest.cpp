#include "shntool/reading/MarkedText.h"

#include <string>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace std::string_literals;
using zolt::reading::markedText;
using zolt::reading::none;

namespace {

/// "no mark" for bytes without one.
std::string unmarked(const std::string& bytes)
{
    std::string text(bytes.size() * 3 / 2, '\0');
    const auto size =
        zolt::reading::unmarked(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), text.data());
    return size == none ? "no mark" : text.substr(0, size);
}

std::string littleEndian(const std::u16string& text)
{
    std::string bytes = "\xff\xfe";
    for (const char16_t unit : text)
        bytes += {char(unit & 0xff), char(unit >> 8)};
    return bytes;
}

std::string bigEndian(const std::u16string& text)
{
    std::string bytes = littleEndian(text);
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

/// What a stream over a file of these bytes gives.
std::string read(const std::string& bytes)
{
    std::FILE* const file = std::tmpfile();
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fflush(file);
    std::FILE* const stream = markedText(fileno(file));
    std::string text = stream ? "" : "no stream";
    for (char line[64]; stream && std::fgets(line, sizeof line, stream);)
        text += line;
    if (stream) std::fclose(stream);
    std::fclose(file);
    return text;
}

} // namespace

TEST(MarkedText, Utf16BecomesUtf8InEitherOrder)
{
    const std::u16string text = u"a\u00e9\u20ac\U0001d11e\r\n";
    const std::string expected = "a\u00e9\u20ac\U0001d11e\r\n";
    EXPECT_EQ(unmarked(littleEndian(text)), expected);
    EXPECT_EQ(unmarked(bigEndian(text)), expected);
}

TEST(MarkedText, BrokenPairsAndHalfUnitsDoNoHarm)
{
    EXPECT_EQ(unmarked(littleEndian({0xd834, u'a', 0xdd1e})), "\ufffda\ufffd");
    EXPECT_EQ(unmarked(littleEndian({u'a', 0xd834})), "a\ufffd");
    EXPECT_EQ(unmarked(littleEndian(u"a") + "b"), "a");
    EXPECT_EQ(unmarked("\xff\xfe"s), "");
}

TEST(MarkedText, Utf8LosesItsMark)
{
    EXPECT_EQ(unmarked("\xef\xbb\xbf"
                       "0:30\n"),
              "0:30\n");
}

TEST(MarkedText, BytesWithoutAMarkAreLeftAlone)
{
    for (const std::string& bytes : {"0:30\n"s, ""s, "\xff"s, "\xef\xbb"s, "RIFF\xff\xfe"s}) {
        EXPECT_EQ(unmarked(bytes), "no mark");
        EXPECT_EQ(read(bytes), "no stream");
    }
}

TEST(MarkedText, IsReadLineByLine)
{
    EXPECT_EQ(read(littleEndian(u"0:30\n1:00\n")), "0:30\n1:00\n");
    EXPECT_EQ(read("\xef\xbb\xbf"
                   "0:30\n"),
              "0:30\n");
    EXPECT_EQ(read("\xef\xbb\xbf"), "");
    EXPECT_EQ(read("\xef\xbb\xbf" + std::string(1 << 20, 'a')), "no stream") << "too long to be one";
}
