#include "support/EveryCut.h"

#include <gtest/gtest.h>

namespace zolt::test {

void everyCut(const QByteArray& transcript, const std::function<void(const QList<QByteArray>& pieces)>& parse)
{
    parse({transcript});
    for (qsizetype cut = 1; cut < transcript.size(); ++cut) {
        SCOPED_TRACE(testing::Message() << "cut behind byte " << cut << ", "
                                        << transcript.mid(cut - 8, 16).toPercentEncoding(" ,=").constData());
        parse({transcript.first(cut), transcript.sliced(cut)});
    }
}

} // namespace zolt::test
