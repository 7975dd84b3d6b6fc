#include "interactive/ipr_session.h"

#include <gmock/gmock.h>

#include "support/listener.h"
#include "tools/renderer_bench.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

// A session with a listener of the test's own.
class IprSessionTest : public testing::Test {
 protected:
  IprSessionTest() {
    auto connection = host::TcpConnection::Open({{127, 0, 0, 1}}, listener_.Port(), 5s);
    listener_.Accept();
    if (connection) session_ = std::make_unique<IprSession>(std::move(*connection));
  }

  // All that was sent, after the end of the session.
  std::string Sent() {
    session_.reset();
    return listener_.ReadToEnd();
  }

  Listener listener_;
  std::unique_ptr<IprSession> session_;
};

TEST_F(IprSessionTest, AFrameIsItsLengthAndItsText) {
  EXPECT_TRUE(session_->AppendText("IrEnd"));
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_EQ(Sent(), std::string("\x05\x00\x49\x72\x45\x6E\x64", 7));
}

TEST_F(IprSessionTest, TheLowByteOfTheLengthComesFirst) {
  EXPECT_TRUE(session_->AppendText(std::string(300, 'x')));
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_EQ(Sent(), "\x2C\x01" + std::string(300, 'x'));
}

TEST_F(IprSessionTest, AFrameHasAText) {
  EXPECT_FALSE(session_->SendFrame());
  EXPECT_FALSE(session_->HasFailed());
  session_->AppendText("a");
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_FALSE(session_->SendFrame());
  EXPECT_EQ(Sent(), std::string("\x01\x00"
                                "a",
                                3));
}

TEST_F(IprSessionTest, AFrameIsMadeOfPieces) {
  session_->AppendText("lost");
  session_->Clear();
  session_->AppendText("one ");
  session_->AppendText("two");
  session_->AppendText({});
  EXPECT_TRUE(session_->SendFrame());
  session_->AppendText("three");
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_EQ(Sent(), std::string("\x07\x00one two\x05\x00three", 16));
}

TEST_F(IprSessionTest, ATextThatMakesTheFrameTooLongIsLeftOut) {
  EXPECT_FALSE(session_->AppendText(std::string(31998, 'x')));
  EXPECT_TRUE(session_->AppendText(std::string(31997, 'y')));
  EXPECT_FALSE(session_->AppendText("z"));
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_EQ(Sent(), "\xFD\x7C" + std::string(31997, 'y'));
}

TEST_F(IprSessionTest, ATextEndsAtAZeroByte) {
  session_->AppendText(std::string_view("ab\0cd", 5));
  EXPECT_TRUE(session_->SendFrame());
  EXPECT_EQ(Sent(), std::string("\x02\x00"
                                "ab",
                                4));
}

TEST_F(IprSessionTest, NothingIsSentAfterAFailure) {
  listener_.Reset();
  for (int i = 0; i < 1000 && !session_->HasFailed(); ++i) {
    session_->AppendText(std::string(30000, 'x'));
    static_cast<void>(session_->SendFrame());
  }
  ASSERT_TRUE(session_->HasFailed());
  EXPECT_FALSE(session_->AppendText("a"));
  EXPECT_FALSE(session_->SendFrame());
}

// So many attempts, half a second before each.
IprConnection Patience(int attempts) {
  return {Listener::FreePort(), attempts, 500ms};
}

TEST(OpenIprSession, StartsTheRendererWithThePlaceWhereItIsToListen) {
  const RendererBench bench;
  const IprConnection connection = Patience(20);
  const auto session = OpenIprSession("-p 2 -pri 0 \"/a b/c_ipr.rib\"", connection);
  ASSERT_NE(session, nullptr);
  const std::string place = *host::OwnHostName() + ":" + std::to_string(connection.Port);
  ASSERT_FALSE(bench.Events().empty());
  EXPECT_THAT(bench.Events()[0].command,
              ElementsAre("tweakorv", "-ihost", place, "-p", "2", "-pri", "0", "/a b/c_ipr.rib"));
  session->AppendText("IrEnd");
  EXPECT_TRUE(session->SendFrame());
  EXPECT_THAT(bench.Frames(1), ElementsAre("IrEnd"));
  EXPECT_TRUE(bench.Wait("end"));
}

TEST(OpenIprSession, WithoutTheRendererThereIsNone) {
  const ScopedEnvironment path("PATH", "/nowhere");
  EXPECT_EQ(OpenIprSession("x", Patience(1)), nullptr);
}

TEST(OpenIprSession, TheNinthAttemptIsEarlyEnough) {
  const RendererBench bench("late 4250");
  EXPECT_NE(OpenIprSession("x", Patience(10)), nullptr);
  EXPECT_TRUE(bench.Wait("accepted"));
}

TEST(OpenIprSession, TheTenthAttemptIsTooLateThoughTheRendererTakesIt) {
  const RendererBench bench("late 4750");
  EXPECT_EQ(OpenIprSession("x", Patience(10)), nullptr);
  EXPECT_TRUE(bench.Wait("accepted"));
  EXPECT_TRUE(bench.Wait("end"));
}

TEST(OpenIprSession, ARendererThatLeavesIsNotWaitedForLongerThanAnother) {
  const RendererBench bench("leave");
  EXPECT_EQ(OpenIprSession("x", Patience(3)), nullptr);
  EXPECT_EQ(bench.Events().size(), 1u);
}

}  // namespace
}  // namespace orv
