// What the tests of lossy encoding share.
#pragma once

#include "engine/OutputWindowController.h"
#include "lossy/EncodeAACTask.h"
#include "lossy/EncodeMP3Task.h"
#include "lossy/LossyTab.h"
#include "lossy/LossyTitles.h"
#include "support/Programs.h"
#include "support/TabFixture.h"

namespace zolt::test {

class LossyTest : public TabFixture<LossyTab>
{
protected:
    LossyTest() : TabFixture(Constants::LOSSY) { tab.awakeFromNib(); }

    /// Chooses a format and a mode as clicks do.
    void choose(const QString& format, const QString& mode)
    {
        tab.outputFormatMatrix->selectTitle(format);
        (format == lossyTitle::MP3 ? tab.mp3Matrix : tab.aacMatrix)->selectTitle(mode);
        tab.changeDisplayOptions(nullptr);
    }
    static int stored(const char* key) { return UserDefaults::standard().integerForKey(QLatin1String(key)); }
};

} // namespace zolt::test
