#include "host/fiber_loop.h"

#include <boost/context/fiber.hpp>
#include <boost/context/protected_fixedsize_stack.hpp>
#include <exception>
#include <optional>
#include <utility>

// The address sanitizer follows each change of stack.
#if defined(__SANITIZE_ADDRESS__)
#define KESTRANE_ASAN_FIBERS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KESTRANE_ASAN_FIBERS
#endif
#endif
#ifdef KESTRANE_ASAN_FIBERS
#include <sanitizer/common_interface_defs.h>
#endif

namespace kestrane {
namespace {

namespace context = boost::context;

// Unwinds a fiber. No std::exception, so that nothing on the way takes it for a failure.
struct FiberEnded {
    int status;
};

// What the sanitizer knows of the side that is left.
struct LeftStack {
    void* fake = nullptr;
    const void* bottom = nullptr;
    std::size_t size = 0;
};

#ifdef KESTRANE_ASAN_FIBERS
void BeforeSwitch(LeftStack* left, const void* bottom, std::size_t size) {
    __sanitizer_start_switch_fiber(left ? &left->fake : nullptr, bottom, size);
}
void AfterSwitch(const LeftStack& back, LeftStack& from) {
    __sanitizer_finish_switch_fiber(back.fake, &from.bottom, &from.size);
}
#else
void BeforeSwitch(LeftStack*, const void*, std::size_t) {}
void AfterSwitch(const LeftStack&, LeftStack&) {}
#endif

}  // namespace

// The stack and the two sides that switch: the thread, which enters, and the fiber, which leaves.
class FiberLoop::Stack {
  public:
    explicit Stack(std::function<int()> body) : body_(std::move(body)) {
        context::protected_fixedsize_stack allocator(kStackBytes);
        const context::stack_context memory = allocator.allocate();
        bottom_ = static_cast<char*>(memory.sp) - memory.size;
        size_ = memory.size;
        fiber_ = context::fiber(std::allocator_arg,
                                context::preallocated(memory.sp, memory.size, memory), allocator,
                                [this](context::fiber&& thread) { return Run(std::move(thread)); });
    }
    // A fiber is left for good by an exception at the place where it waits.
    ~Stack() {
        if (status_ || !begun_) return;
        abandoned_ = true;
        Enter();
    }

    // Runs the fiber until it leaves or ends.
    void Enter() {
        begun_ = true;
        BeforeSwitch(&thread_side_, bottom_, size_);
        fiber_ = std::move(fiber_).resume();
        LeftStack fiber_stack;
        AfterSwitch(thread_side_, fiber_stack);
    }

    // Goes back to the thread until it enters again.
    void Leave() {
        BeforeSwitch(&fiber_side_, thread_stack_.bottom, thread_stack_.size);
        thread_ = std::move(thread_).resume();
        AfterSwitch(fiber_side_, thread_stack_);
        if (abandoned_) throw FiberEnded{0};
    }

    const std::optional<int>& Status() const { return status_; }

  private:
    context::fiber Run(context::fiber&& thread) {
        thread_ = std::move(thread);
        AfterSwitch(fiber_side_, thread_stack_);
        try {
            status_ = body_();
        } catch (const FiberEnded& end) {
            status_ = end.status;
        }
        BeforeSwitch(nullptr, thread_stack_.bottom, thread_stack_.size);
        return std::move(thread_);
    }

    std::function<int()> body_;
    std::optional<int> status_;  // once it has ended
    bool begun_ = false;
    bool abandoned_ = false;
    const void* bottom_ = nullptr;
    std::size_t size_ = 0;
    context::fiber fiber_;
    context::fiber thread_;
    LeftStack thread_side_;
    LeftStack fiber_side_;
    LeftStack thread_stack_;
};

FiberLoop::FiberLoop() = default;
FiberLoop::~FiberLoop() = default;

void FiberLoop::Start(std::function<int()> task, std::function<void(int)> on_end) {
    on_end_ = std::move(on_end);
    stack_ = std::make_unique<Stack>(std::move(task));
    Schedule();
}

void FiberLoop::Pump() {
    // Others come first each time, so that a fiber that always has something to do holds up none.
    do {
        stack_->Leave();
    } while (events_.empty());
    const std::function<void()> event = std::move(events_.front());
    events_.pop_front();
    event();
    // An observer may add others, or pump.
    for (std::size_t i = 0; i < observers_.size(); ++i) observers_[i]();
}

void FiberLoop::Post(std::function<void()> action) {
    events_.push_back(std::move(action));
    Schedule();
}

void FiberLoop::AfterEvents(std::function<void()> observer) {
    observers_.push_back(std::move(observer));
}

void FiberLoop::Exit(int status) { throw FiberEnded{status}; }

void FiberLoop::Schedule() {
    if (!stack_ || stack_->Status() || std::exchange(scheduled_, true)) return;
    QMetaObject::invokeMethod(
        &context_, [this] { Resume(); }, Qt::QueuedConnection);
}

void FiberLoop::Resume() {
    scheduled_ = false;
    if (stack_->Status()) return;  // it ended with events left
    stack_->Enter();
    if (!stack_->Status()) {
        if (!events_.empty()) Schedule();
        return;
    }
    const int status = *stack_->Status();
    const auto on_end = std::exchange(on_end_, {});
    on_end(status);
}

}  // namespace kestrane
