// usage: host LIBRARY ORDER
// Opens the library, uses it from several threads, closes it and ends, in the named order. Answers
// 0 if all went well.

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "library.h"

namespace {

char const* path;

void require(bool holds, char const* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

/// Texts, an expression, an image and variants of them, all gone at the end.
void use(Library const& library, int number)
{
    using Handle = Library::Handle;
    Handle text;
    Handle pattern;
    Handle expression;
    library.makeString(&text, "xabbb");
    library.makeString(&pattern, "a(b+)");
    library.makeExpression(&expression, &pattern, 1, 0);
    require(library.indexIn(&expression, &text, 0, 0) == 1, "an expression is found");

    Handle image;
    library.makeImage(&image);
    require(library.createImage(&image, nullptr, 64, 64, 3, 0, 0) != 0, "an image is made");

    Handle ofText;
    Handle ofImage;
    Handle copy;
    library.makeVariantOfString(&ofText, &text);
    library.makeVariantOfImage(&ofImage, &image);
    library.copyVariant(&copy, &ofText);
    library.assignVariant(&copy, &ofImage);
    require(library.variantType(&copy) == 4, "an assigned variant holds an image");
    library.fromInt(&copy, number);
    int read = -1;
    require(library.toInt(&copy, &read) && read == number, "a written variant reads back");
    require(library.variantType(&ofImage) == 4, "the other handle keeps the image");

    library.destroyVariant(&copy);
    library.destroyVariant(&ofImage);
    library.destroyVariant(&ofText);
    library.destroyImage(&image);
    library.destroyExpression(&expression);
    library.destroyString(&pattern);
    library.destroyString(&text);
}

/// Three threads that use the library and then wait until they may end.
class Users
{
public:
    explicit Users(Library const& library)
    {
        for (int number = 0; number < count; ++number)
            m_threads.emplace_back([this, &library, number] { run(library, number); });
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [this] { return m_done == count; });
    }

    /// Lets the threads end, and waits for them.
    void end()
    {
        {
            std::lock_guard<std::mutex> const lock(m_mutex);
            m_mayEnd = true;
        }
        m_changed.notify_all();
        for (std::thread& thread : m_threads)
            thread.join();
        m_threads.clear();
    }

    /// Leaves the threads waiting for as long as the process lives.
    void abandon()
    {
        for (std::thread& thread : m_threads)
            thread.detach();
        m_threads.clear();
    }

private:
    static constexpr int count = 3;

    void run(Library const& library, int number)
    {
        for (int round = 0; round < 100; ++round)
            use(library, number);
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_done;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_mayEnd; });
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_done = 0;
    bool m_mayEnd = false;
    std::vector<std::thread> m_threads;
};

void closeForGood(Library& library)
{
    library.close();
    require(!Library::isOpen(path), "the closed library is unloaded");
}

// --- the orders ----------------------------------------------------------------------------------

void threadsEndBeforeClosing()
{
    for (int round = 0; round < 3; ++round) {
        Library library(path);
        Users(library).end();
        closeForGood(library);
    }
}

void threadsLiveOnAfterClosing()
{
    Library library(path);
    Users users(library);
    closeForGood(library);
    // The first threads live, and later end, while the library is there a second time.
    Library again(path);
    Users others(again);
    users.end();
    use(again, 7);
    closeForGood(again);
    others.end();
}

void anotherThreadClosesThanOpened()
{
    for (int round = 0; round < 10; ++round) {
        Library* library = nullptr;
        std::thread([&library] { library = new Library(path); }).join();
        use(*library, round);
        std::thread([library] { closeForGood(*library); }).join();
        delete library;
    }
}

void endsWhileOpenAndInUse()
{
    auto* const library = new Library(path);
    auto* const users = new Users(*library);
    users->abandon();
    Library::Handle text;
    library->makeString(&text, "left behind");
    // The process ends with a value alive and with threads waiting.
}

void aThreadEndsTheProcess()
{
    auto* const library = new Library(path);
    auto* const users = new Users(*library);
    users->abandon();
    std::thread([library] {
        use(*library, 1);
        std::exit(0);
    }).join();
}

void endsAfterClosing()
{
    auto* const library = new Library(path);
    auto* const users = new Users(*library);
    users->abandon();
    closeForGood(*library);
}

void bothSidesOfAForkGoOn()
{
    Library library(path);
    Users users(library);
    users.end();
    Library::Handle text;
    Library::Handle before;
    library.makeString(&text, "made before");
    library.makeVariantOfString(&before, &text);

    pid_t const child = ::fork();
    require(child >= 0, "the process is forked");
    // From here on both do the same: what was made before is theirs, and threads may be started.
    Library::Handle copy;
    library.copyVariant(&copy, &before);
    library.fromInt(&copy, 5);
    require(library.variantType(&before) == 2, "what was made before is unchanged");
    library.destroyVariant(&copy);
    library.destroyVariant(&before);
    library.destroyString(&text);
    Users(library).end();
    closeForGood(library);
    Library again(path);
    use(again, 3);
    closeForGood(again);
    if (child == 0)
        return;
    int status = -1;
    require(::waitpid(child, &status, 0) == child, "the child has ended");
    require(WIFEXITED(status) && WEXITSTATUS(status) == 0, "the child went on as the parent did");
}

struct Order
{
    char const* name;
    void (*run)();
};

constexpr Order orders[] = {
    {"threadsEndBeforeClosing", threadsEndBeforeClosing},
    {"threadsLiveOnAfterClosing", threadsLiveOnAfterClosing},
    {"anotherThreadClosesThanOpened", anotherThreadClosesThanOpened},
    {"endsWhileOpenAndInUse", endsWhileOpenAndInUse},
    {"aThreadEndsTheProcess", aThreadEndsTheProcess},
    {"endsAfterClosing", endsAfterClosing},
    {"bothSidesOfAForkGoOn", bothSidesOfAForkGoOn},
};

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    path = argv[1];
    auto const* const order =
        std::find_if(std::begin(orders), std::end(orders),
                     [argv](Order const& each) { return std::strcmp(each.name, argv[2]) == 0; });
    if (order == std::end(orders))
        return 2;
    try {
        order->run();
    } catch (std::exception const& exception) {
        std::fprintf(stderr, "does not hold: %s\n", exception.what());
        return 1;
    }
    return 0;
}
