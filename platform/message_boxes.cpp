#include "platform/message_boxes.h"

namespace tallyo {
namespace {

class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

BoxAnswer MessageBoxes::Show(const MessageBox& box) {
  BoxAnswer answer{};
  {
    const Counted counted(open_);
    answer = Ask(box);
  }
  pump_.ThrowIfEnded();
  return answer;
}

}  // namespace tallyo
