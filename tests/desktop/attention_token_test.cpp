#include "desktop/attention_token.h"
#include "support/WaylandCompositor.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace std::chrono_literals;

namespace {

TEST(AttentionToken, IsTheCompositors) {
    WaylandCompositor compositor("leave to ask");
    compositor.run();
    EXPECT_EQ(attentionToken(10s), "leave to ask");
}

TEST(AttentionToken, IsEmptyWithoutACompositor) {
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(attentionToken(10s), QByteArray());
}

TEST(AttentionToken, IsEmptyWhereTheCompositorHasNone) {
    WaylandCompositor compositor;
    compositor.run();
    EXPECT_EQ(attentionToken(10s), QByteArray());
}

TEST(AttentionToken, IsNotWaitedForWhereTheCompositorHangs) {
    const WaylandCompositor hanging("never");
    EXPECT_EQ(attentionToken(20ms), QByteArray());
}

} // namespace
