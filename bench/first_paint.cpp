// zarn_first_paint [--ink] PROGRAM [WORD...]: milliseconds from starting the program to its first painted window.
//
// The window counts as painted when it is mapped, at least 100 pixels wide and high, and its middle is no longer the
// black that the server starts with; with --ink, when its middle is mostly light and has something dark on it: music.
// The display is asked every half millisecond, so the figure is true to about one. The program is then told to end.
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

extern char** environ;

namespace
{
using Clock = std::chrono::steady_clock;
constexpr auto longestWait = std::chrono::seconds(30);
constexpr auto pollEvery = std::chrono::microseconds(500);
constexpr int smallestSide = 100; // pixels; toolkits map tiny helper windows first
constexpr int bytesPerPixel = 4;
constexpr uint8_t middleGrey = 127;

struct Freer
{
    void operator()(void* p) const { std::free(p); }
};
template <typename T>
using Reply = std::unique_ptr<T, Freer>;

bool IsPainted(xcb_connection_t* x, xcb_window_t window, bool bInk)
{
    Reply<xcb_get_window_attributes_reply_t> const look(
        xcb_get_window_attributes_reply(x, xcb_get_window_attributes(x, window), nullptr));
    Reply<xcb_get_geometry_reply_t> const box(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
    if (!look || !box || look->map_state != XCB_MAP_STATE_VIEWABLE || box->width < smallestSide ||
        box->height < smallestSide)
        return false;
    // The middle of the window: what surrounds it may be painted later.
    auto const cookie = xcb_get_image(x, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<int16_t>(box->width / 4),
                                      static_cast<int16_t>(box->height / 4), box->width / 2, box->height / 2, ~0u);
    Reply<xcb_get_image_reply_t> const image(xcb_get_image_reply(x, cookie, nullptr));
    if (!image)
        return false;
    uint8_t const* const pBytes = xcb_get_image_data(image.get());
    int cLight = 0;
    int cDark = 0;
    int const cPixels = xcb_get_image_data_length(image.get()) / bytesPerPixel;
    for (int n = 0; n < cPixels; ++n)
    {
        uint8_t const* const pPixel = pBytes + n * bytesPerPixel;
        cLight += std::min({pPixel[0], pPixel[1], pPixel[2]}) > middleGrey;
        cDark += std::max({pPixel[0], pPixel[1], pPixel[2]}) < middleGrey;
    }
    return bInk ? cLight > cPixels / 2 && cDark > 0 : cLight > 0;
}

/// True when a window of any program is painted; the display has no other programs on it.
bool AnyPainted(xcb_connection_t* x, xcb_window_t root, bool bInk)
{
    Reply<xcb_query_tree_reply_t> const tree(xcb_query_tree_reply(x, xcb_query_tree(x, root), nullptr));
    if (!tree)
        return false;
    xcb_window_t const* const pFirst = xcb_query_tree_children(tree.get());
    return std::any_of(pFirst, pFirst + xcb_query_tree_children_length(tree.get()),
                       [&](xcb_window_t window) { return IsPainted(x, window, bInk); });
}
} // namespace

int main(int argc, char** argv)
{
    bool const bInk = argc > 1 && std::strcmp(argv[1], "--ink") == 0;
    if (bInk)
        --argc, ++argv;
    if (argc < 2)
    {
        std::fputs("usage: zarn_first_paint [--ink] PROGRAM [WORD...]\n", stderr);
        return 2;
    }
    xcb_connection_t* const x = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(x))
    {
        std::fputs("there is no X display\n", stderr);
        return 1;
    }
    xcb_window_t const root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    auto const start = Clock::now();
    pid_t child = 0;
    if (int const error = posix_spawnp(&child, argv[1], nullptr, nullptr, argv + 1, environ); error != 0)
    {
        std::fprintf(stderr, "%s: %s\n", argv[1], std::strerror(error));
        return 1;
    }
    bool painted = false;
    bool ended = false;
    while (!painted && !ended && Clock::now() - start < longestWait)
    {
        painted = AnyPainted(x, root, bInk);
        ended = !painted && waitpid(child, nullptr, WNOHANG) == child;
        if (!painted)
            std::this_thread::sleep_for(pollEvery);
    }
    double const milliseconds = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    if (!ended)
    {
        kill(child, SIGTERM);
        waitpid(child, nullptr, 0);
    }
    xcb_disconnect(x);
    if (!painted)
    {
        std::fputs("no window was painted\n", stderr);
        return 1;
    }
    std::printf("%.1f\n", milliseconds);
}
