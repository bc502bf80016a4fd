// Three tools in three threads. Each has its own handles; what they hand over are variants.
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <numeric>
#include <queue>
#include <thread>

#include <kdrdata/kdrdata.h>

// Between two tools. The lock guards the queue; the values in it share stores and need none.
struct Belt
{
    void put(KDRVariant const& value)
    {
        std::lock_guard<std::mutex> const lock(mutex);
        values.push(value);
        filled.notify_one();
    }
    KDRVariant take()
    {
        std::unique_lock<std::mutex> lock(mutex);
        filled.wait(lock, [this] { return !values.empty(); });
        KDRVariant const value(values.front());
        values.pop();
        return value;
    }
    std::mutex mutex;
    std::condition_variable filled;
    std::queue<KDRVariant> values;
};

int main()
{
    Belt pictures, sums;
    std::thread measuring([&] {
        KDRImage image; // nobody writes to its pixels any more, so that any thread may read them
        while (pictures.take().toImage(&image)) { // an empty variant ends the work
            std::ptrdiff_t const bytes = std::ptrdiff_t(image.height()) * image.step();
            sums.put(std::accumulate(image.dataPtr(), image.dataPtr() + bytes, 0L));
        }
        sums.put(KDRVariant());
    });
    std::thread telling([&] {
        long sum = 0;
        while (sums.take().toLong(&sum))
            std::printf("sum %ld\n", sum);
    });
    for (unsigned char n = 1; n <= 3; ++n) {
        KDRImage image(nullptr, 4, 2, 1, 0, KDRImage::DataTypeUInt8); // an image of its own
        image.dataPtr()[5] = n;
        pictures.put(image);
    }
    pictures.put(KDRVariant());
    measuring.join();
    telling.join();
    return 0;
}
