// Starts a program with windows and prints the milliseconds from its exec to the first painting of its first window,
// those of the processor that it took for that, and its process id.
//   tidvane-first-paint COMMAND...
// The program is left running. It needs a display without other new windows.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>

// Behind the others: they give everyday words meanings of their own.
#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(20);
constexpr int kLeastSide = 300;  // smaller ones are helpers of the toolkit and the window manager

// Everything that is drawn into the windows that show on the screen tells of itself.
struct Watch {
    Display* display = XOpenDisplay(nullptr);
    int damageEvent = 0;
    std::map<Damage, long> area;  // of the window that each belongs to

    bool open() {
        int error = 0;
        if (display == nullptr || !XDamageQueryExtension(display, &damageEvent, &error)) return false;
        XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
        XSync(display, False);
        return true;
    }

    // True: at least half of a window has been painted.
    bool takesPaint(XEvent& event) {
        if (event.type == MapNotify) {
            XWindowAttributes window;
            if (XGetWindowAttributes(display, event.xmap.window, &window) == 0) return false;
            if (window.width < kLeastSide || window.height < kLeastSide) return false;
            area[XDamageCreate(display, event.xmap.window, XDamageReportRawRectangles)] =
                static_cast<long>(window.width) * window.height;
            XFlush(display);
        } else if (event.type == damageEvent + XDamageNotify) {
            const auto* damage = reinterpret_cast<XDamageNotifyEvent*>(&event);
            const long painted = static_cast<long>(damage->area.width) * damage->area.height;
            const auto found = area.find(damage->damage);
            return found != area.end() && 2 * painted >= found->second;
        }
        return false;
    }
};

// Of user and system together, so far.
long processorMilliseconds(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text(std::istreambuf_iterator<char>(file), {});
    // Behind the name, which may hold anything: the state and ten numbers come before the two.
    std::istringstream numbers(text.substr(text.rfind(')') + 1));
    std::string skipped;
    for (int at = 0; at < 11; ++at) numbers >> skipped;
    long user = 0;
    long system = 0;
    numbers >> user >> system;
    return (user + system) * 1000 / ::sysconf(_SC_CLK_TCK);
}

int ignoreError(Display*, XErrorEvent*) {
    return 0;  // a window may be gone before it is looked at
}

}  // namespace

int main(int count, char** words) {
    Watch watch;
    if (count < 2 || !watch.open()) {
        std::fputs("tidvane-first-paint COMMAND... needs a command, and a display that tells of what is drawn\n",
                   stderr);
        return 2;
    }
    XSetErrorHandler(&ignoreError);
    const Clock::time_point start = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        // Whoever reads the time does not wait for the program.
        ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ::execvp(words[1], words + 1);
        ::_exit(127);
    }
    while (Clock::now() - start < kPatience) {
        pollfd waiting{ConnectionNumber(watch.display), POLLIN, 0};
        ::poll(&waiting, 1, 50);
        while (XPending(watch.display) > 0) {
            XEvent event;
            XNextEvent(watch.display, &event);
            if (!watch.takesPaint(event)) continue;
            const std::chrono::duration<double, std::milli> took = Clock::now() - start;
            std::printf("%.0f %ld %d\n", took.count(), processorMilliseconds(child), static_cast<int>(child));
            return 0;
        }
    }
    std::fputs("no window was painted\n", stderr);
    return 1;
}
