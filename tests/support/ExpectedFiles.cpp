#include "support/ExpectedFiles.h"

#include <gtest/gtest.h>

#include <utility>

namespace TradeForms {

ExpectedFiles::ExpectedFiles()
    : previous_(Modal::SetSavePresenter([this](QWidget*, const SaveQuestion& question) {
          if (expected_.empty()) {
              ADD_FAILURE() << "Unexpected question where to save " << question.Name.toStdString();
              return QString();
          }
          const Expected expected = std::move(expected_.front());
          expected_.pop_front();
          EXPECT_EQ(question.Suffix, expected.Suffix);
          EXPECT_FALSE(question.Name.isEmpty());
          EXPECT_FALSE(question.Kind.isEmpty());
          return expected.Answer;
      }))
{
}

ExpectedFiles::~ExpectedFiles()
{
    Modal::SetSavePresenter(std::move(previous_));
    if (!expected_.empty())
        ADD_FAILURE() << expected_.size() << " questions where to save have not come";
}

void ExpectedFiles::Expect(const QString& suffix, const QString& answer)
{
    expected_.push_back({suffix, answer});
}

} // namespace TradeForms
