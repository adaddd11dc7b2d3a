#include "services/CallGuard.hpp"

#include "GSException.hpp"
#include "text/Message.hpp"

#include <ucontext.h>

#include <csetjmp>
#include <csignal>
#include <cstddef>
#include <exception>
#include <memory>
#include <new>

namespace host {

namespace {

struct Guard {
    Guard* outer;
    CodeRange code;
    sigjmp_buf place;
};

/// The guarded calls under way on this thread.
thread_local Guard* innermost = nullptr;

struct WatchedSignal {
    int number;
    text::Phrase name;
    struct sigaction before;
};
WatchedSignal watchedSignals[] = {{SIGSEGV, text::phrase("a segmentation fault"), {}},
                                  {SIGBUS, text::phrase("a bus error"), {}},
                                  {SIGFPE, text::phrase("an arithmetic fault"), {}},
                                  {SIGILL, text::phrase("an illegal instruction"), {}}};

WatchedSignal* watched(int number) {
    for (WatchedSignal& signal : watchedSignals) {
        if (signal.number == number) return &signal;
    }
    return nullptr;
}

std::string nameOf(int number) {
    const WatchedSignal* signal = watched(number);
    return signal == nullptr ? text::message("signal {}", number) : signal->name.text();
}

/// The address of the instruction that faulted; 0 on processors that are not known here, whose faults end the program.
std::uintptr_t faultingInstruction(const void* context) {
    const mcontext_t& machine = static_cast<const ucontext_t*>(context)->uc_mcontext;
#if defined(__x86_64__)
    return static_cast<std::uintptr_t>(machine.gregs[REG_RIP]);
#elif defined(__aarch64__)
    return machine.pc;
#else
    static_cast<void>(machine);
    return 0;
#endif
}

extern "C" void onFault(int number, siginfo_t* info, void* context) {
    Guard* const guard = innermost;
    const bool fromProcessor = info->si_code > 0;  // Not sent by kill() or raise().
    if (guard != nullptr && fromProcessor && guard->code.contains(faultingInstruction(context))) {
        siglongjmp(guard->place, number);
    }
    // Not the add-on's: the handler before gets it, when the instruction is tried again.
    const WatchedSignal* signal = watched(number);
    if (signal != nullptr) sigaction(number, &signal->before, nullptr);
    if (!fromProcessor) raise(number);
}

/// The handler needs a stack of its own: the add-on's may be what is used up. One that somebody provided already (a
/// sanitizer does, and frees it again) is as good.
void provideSignalStack() {
    static constexpr std::size_t Size = 0x10000;
    // Not from the heap: to have it freed with its thread, the C library ends the program where memory is used up.
    static thread_local char memory[Size];
    static thread_local bool provided = false;
    if (provided) return;
    provided = true;
    stack_t stack{};
    if (sigaltstack(nullptr, &stack) == 0 && (stack.ss_flags & SS_DISABLE) == 0) return;
    stack = {};
    stack.ss_sp = memory;
    stack.ss_size = Size;
    sigaltstack(&stack, nullptr);
}

std::optional<CallFault> catchingExceptions(void (*call)(void*), void* argument) {
    try {
        call(argument);
        return std::nullopt;
    } catch (const GS::GSException& exception) {
        return CallFault{false, false, exception.GetMessage().ToCStr().Get()};
    } catch (const std::bad_alloc&) {
        return CallFault{false, true, {}};
    } catch (const std::exception& exception) {
        return CallFault{false, false, exception.what()};
    } catch (...) {
        return CallFault{false, false, text::message("it is of an unknown kind")};
    }
}

}  // namespace

std::optional<CallFault> runGuarded(const CodeRange& code, void (*call)(void*), void* argument) {
    provideSignalStack();
    Guard guard{innermost, code, {}};
    if (const int fault = sigsetjmp(guard.place, 1); fault != 0) {
        innermost = guard.outer;
        return CallFault{true, false, nameOf(fault)};
    }
    innermost = &guard;
    // A destructor: where there is no memory for the message of an exception, that is an exception, too.
    const std::unique_ptr<Guard, void (*)(Guard*)> end(&guard, [](Guard* ended) { innermost = ended->outer; });
    return catchingExceptions(call, argument);
}

FaultWatch::FaultWatch() {
    struct sigaction action {};
    action.sa_sigaction = &onFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (WatchedSignal& signal : watchedSignals) sigaction(signal.number, &action, &signal.before);
}

FaultWatch::~FaultWatch() {
    for (const WatchedSignal& signal : watchedSignals) sigaction(signal.number, &signal.before, nullptr);
}

}  // namespace host
