// What the tests of decoding share.
#pragma once

#include "decode/DecodeFlacTask.h"
#include "decode/DecodeTab.h"
#include "engine/OutputWindowController.h"
#include "support/Programs.h"
#include "support/TabFixture.h"

namespace zolt::test {

class DecodeTest : public TabFixture<DecodeTab>
{
protected:
    DecodeTest() : TabFixture(Constants::DECODE) {}
};

} // namespace zolt::test
