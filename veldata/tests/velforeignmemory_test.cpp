#include <atomic>
#include <climits>
#include <cstring>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/velimage.h>
#include <veldata/velmatrix.h>

namespace {

/// Memory that counts how often it was given back.
template <class Value>
struct Block
{
    explicit Block(std::vector<Value> elements) : values(std::move(elements)) {}

    static void release(void* block) { ++static_cast<Block*>(block)->released; }

    std::vector<Value> values;
    std::atomic<int> released{0};
};

using Bytes = Block<unsigned char>;
using Doubles = Block<double>;

VelImage imageOver(Bytes& block)
{
    VelImage image;
    EXPECT_EQ(image.CreateImageOver(block.values.data(), 3, 2, 1, VEL_8U, &Bytes::release, &block),
              1);
    return image;
}

VelMatrix matrixOver(Doubles& block)
{
    VelMatrix matrix;
    EXPECT_EQ(matrix.SetMatrixOver(block.values.data(), 2, 3, VEL_64F, &Doubles::release, &block),
              1);
    return matrix;
}

TEST(VelImageOverForeignMemory, UsesItWithoutACopy)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    VelImage const image = imageOver(block);
    EXPECT_EQ(image.ImageData(), block.values.data());
    EXPECT_EQ(image.Width(), 3);
    EXPECT_EQ(image.Height(), 2);
    EXPECT_EQ(image.Channels(), 1);
    EXPECT_EQ(image.Step(), 3);
    EXPECT_EQ(image.BitDepth(), VEL_8U);
}

TEST(VelImageOverForeignMemory, GivesItBackOnceWithTheLastImageThatSharesIt)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    {
        VelImage first = imageOver(block);
        VelImage const second = first;
        first = VelImage();
        EXPECT_EQ(block.released, 0);
        EXPECT_EQ(second.ImageData()[5], 6);
    }
    EXPECT_EQ(block.released, 1);
}

TEST(VelImageOverForeignMemory, GivesItBackWhenItIsMadeAnew)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    VelImage image = imageOver(block);
    EXPECT_EQ(image.CreateImage(nullptr, 2, 2, 1, 0, VEL_8U), 1);
    EXPECT_EQ(block.released, 1);
}

TEST(VelImageOverForeignMemory, HasDeepCopiesThatOutliveIt)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    VelImage const copy = imageOver(block).DeepCopy();
    EXPECT_EQ(block.released, 1);
    block.values.assign(6, 0);
    EXPECT_EQ(std::vector<unsigned char>(copy.ImageData(), copy.ImageData() + 6),
              std::vector<unsigned char>({1, 2, 3, 4, 5, 6}));
}

TEST(VelImageOverForeignMemory, RefusesWhatCannotBeAndTakesNothingOver)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    Bytes other({1, 2, 3, 4, 5, 6});
    VelImage image = imageOver(block);
    unsigned char* const data = other.values.data();
    EXPECT_EQ(image.CreateImageOver(nullptr, 3, 2, 1, VEL_8U, &Bytes::release, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, 3, 2, 1, VEL_8U, nullptr, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, 0, 2, 1, VEL_8U, &Bytes::release, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, 3, -2, 1, VEL_8U, &Bytes::release, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, 3, 2, 5, VEL_8U, &Bytes::release, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, 3, 2, 1, 7, &Bytes::release, &other), 0);
    EXPECT_EQ(image.CreateImageOver(data, INT_MAX, 2, 1, VEL_8U, &Bytes::release, &other), 0);
    EXPECT_EQ(other.released, 0);
    EXPECT_EQ(block.released, 0);
    EXPECT_EQ(image.ImageData(), block.values.data());
}

TEST(VelImageOverForeignMemory, MayEndInAnyThread)
{
    Bytes block({1, 2, 3, 4, 5, 6});
    VelImage image = imageOver(block);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([copy = image]() mutable { copy = VelImage(); });
    image = VelImage();
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(block.released, 1);
}

TEST(VelMatrixOverForeignMemory, UsesItWithoutACopy)
{
    Doubles block({1, 2, 3, 4, 5, 6});
    VelMatrix const matrix = matrixOver(block);
    EXPECT_EQ(matrix.MatrixData(), block.values.data());
    EXPECT_EQ(matrix.Rows(), 2);
    EXPECT_EQ(matrix.Cols(), 3);
    EXPECT_EQ(matrix.Type(), VEL_64F);
}

TEST(VelMatrixOverForeignMemory, GivesItBackOnceWhereverItWasMoved)
{
    Doubles block({1, 2, 3, 4, 5, 6});
    {
        VelMatrix first = matrixOver(block);
        VelMatrix second = std::move(first);
        first = VelMatrix(1, 1, VEL_8U);
        VelMatrix third;
        third = std::move(second);
        EXPECT_EQ(block.released, 0);
        EXPECT_EQ(third.MatrixData(), block.values.data());
    }
    EXPECT_EQ(block.released, 1);
}

TEST(VelMatrixOverForeignMemory, GivesItBackWhenItIsMadeAnew)
{
    Doubles block({1, 2, 3, 4, 5, 6});
    VelMatrix matrix = matrixOver(block);
    EXPECT_EQ(matrix.SetMatrix(-1, 1, VEL_8U), 0);
    EXPECT_EQ(block.released, 0);
    EXPECT_EQ(matrix.SetMatrix(0, 0, VEL_8U), 1);
    EXPECT_EQ(block.released, 1);
    EXPECT_EQ(matrix.MatrixData(), nullptr);
}

TEST(VelMatrixOverForeignMemory, HasCopiesOfItsOwn)
{
    Doubles block({1, 2, 3, 4, 5, 6});
    VelMatrix matrix = matrixOver(block);
    VelMatrix const copy = matrix;
    matrix = VelMatrix();
    EXPECT_EQ(block.released, 1);
    block.values.assign(6, 0.0);
    double elements[6];
    std::memcpy(elements, copy.MatrixData(), sizeof elements);
    EXPECT_EQ(elements[5], 6.0);
}

TEST(VelMatrixOverForeignMemory, RefusesWhatCannotBeAndTakesNothingOver)
{
    Doubles block({1, 2, 3, 4, 5, 6});
    Doubles other({1, 2, 3, 4, 5, 6});
    VelMatrix matrix = matrixOver(block);
    double* const data = other.values.data();
    EXPECT_EQ(matrix.SetMatrixOver(nullptr, 2, 3, VEL_64F, &Doubles::release, &other), 0);
    EXPECT_EQ(matrix.SetMatrixOver(data, 2, 3, VEL_64F, nullptr, &other), 0);
    EXPECT_EQ(matrix.SetMatrixOver(data, -2, 3, VEL_64F, &Doubles::release, &other), 0);
    EXPECT_EQ(matrix.SetMatrixOver(data, 0, 3, VEL_64F, &Doubles::release, &other), 0);
    EXPECT_EQ(matrix.SetMatrixOver(data, 2, 3, 7, &Doubles::release, &other), 0);
    EXPECT_EQ(matrix.SetMatrixOver(data, INT_MAX, INT_MAX, VEL_64F, &Doubles::release, &other), 0);
    EXPECT_EQ(other.released, 0);
    EXPECT_EQ(block.released, 0);
    EXPECT_EQ(matrix.MatrixData(), block.values.data());
}

} // namespace
