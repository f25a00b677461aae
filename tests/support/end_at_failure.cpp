#include "support/end_at_failure.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace test_support {

namespace {

class EndAtFailure : public testing::EmptyTestEventListener {
  public:
    explicit EndAtFailure(std::function<void(const std::string&)> tell) : m_tell(std::move(tell)) {}

  private:
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (!result.failed())
            return;
        m_tell(result.message());
        std::_Exit(1);
    }

    std::function<void(const std::string&)> m_tell;
};

} // namespace

void endAtFirstFailure(std::function<void(const std::string&)> tell) {
    testing::InitGoogleTest();
    testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
    delete listeners.Release(listeners.default_result_printer());
    listeners.Append(new EndAtFailure(std::move(tell)));
}

} // namespace test_support
