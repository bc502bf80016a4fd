// Handles that share a record: copies, generators that stop sharing, counts, and what holds when
// memory runs out.

#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <random>
#include <vector>

#include "../support/allocations.h"
#include "../support/blocking.h"
#include "../support/failing.h"
#include "../support/shapeaccess.h"
#include "shapetable.h"

namespace {

int countOf(KDRShape const& shape) { return ShapeAccess::record(shape).refCount(); }

KDRShape circle(double radius)
{
    KDRPoint centre(3.0, 4.0);
    KDRShape shape;
    shape.fromCircle(centre, radius);
    return shape;
}

double radiusOf(KDRShape const& shape)
{
    KDRPoint centre;
    double radius = -1.0;
    EXPECT_TRUE(shape.toCircle(&centre, &radius));
    return radius;
}

TEST(ShapeSharing, CopyAndAssignmentShareTheRecord)
{
    KDRShape const original = circle(5.0);
    EXPECT_EQ(countOf(original), 1);
    KDRShape const copy(original);
    KDRShape assigned;
    KDRShape& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    EXPECT_TRUE(ShapeAccess::shareRecord(original, copy));
    EXPECT_TRUE(ShapeAccess::shareRecord(original, assigned));
    EXPECT_EQ(countOf(original), 3);
}

TEST(ShapeSharing, CopyAndAssignmentAllocateNothing)
{
    KDRShape const original = circle(5.0);
    KDRShape assigned;
    long const before = allocations::made();
    {
        KDRShape const copy(original);
        assigned = copy;
    }
    EXPECT_EQ(allocations::made(), before);
}

TEST(ShapeSharing, EveryHandleCountsAndTheLastFreesTheRecord)
{
    long const before = allocations::live();
    {
        KDRShape const original = circle(5.0);
        {
            KDRShape const copy(original);
            EXPECT_EQ(countOf(original), 2);
        }
        EXPECT_EQ(countOf(original), 1);
        KDRShape other = circle(6.0);
        other = original;
        EXPECT_EQ(countOf(original), 2);
        other = KDRShape();
        EXPECT_EQ(countOf(original), 1);
    }
    EXPECT_EQ(allocations::live(), before);
}

TEST(ShapeSharing, AssignmentToItselfChangesNothing)
{
    KDRShape shape = circle(5.0);
    KDRShape const& alias = shape;
    shape = alias;
    EXPECT_EQ(countOf(shape), 1);
    EXPECT_EQ(radiusOf(shape), 5.0);

    KDRShape const sharer(shape);
    shape = sharer;
    EXPECT_EQ(countOf(shape), 2);
    EXPECT_EQ(radiusOf(shape), 5.0);
}

TEST(ShapeSharing, GettersDoNotStopSharing)
{
    KDRShape const shape = circle(5.0);
    KDRShape const copy(shape);
    ShapeValues out;
    for (auto const& getter : shapeGetters<KDRShape>)
        getter.read(copy, out);
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, copy));
}

TEST(ShapeSharing, AnUnsharedHandleKeepsItsRecordOnGenerating)
{
    KDRShape shape;
    KDRShapePrivate const* const record = &ShapeAccess::record(shape);
    for (auto const& generator : shapeGenerators<KDRShape>) {
        ShapeValues in = shapeValues(5);
        generator.generate(shape, in);
        EXPECT_EQ(&ShapeAccess::record(shape), record) << generator.name;
    }
}

TEST(ShapeSharing, AGeneratorOnASharedRecordStartsFromAFreshDefaultOne)
{
    for (auto const& generator : shapeGenerators<KDRShape>) {
        SCOPED_TRACE(generator.name);
        // A record full of contents, all of which must stay with the other handle.
        KDRShape keeper;
        ShapeFields kept;
        for (auto const& filler : shapeGenerators<KDRShape>) {
            ShapeValues in = shapeValues(11);
            filler.generate(keeper, in);
            filler.store(in, kept);
        }
        KDRShape writer(keeper);
        KDRShapePrivate const* const record = &ShapeAccess::record(keeper);
        ShapeValues in = shapeValues(4);
        ShapeFields fields;
        generator.generate(writer, in);
        generator.store(in, fields);

        EXPECT_EQ(&ShapeAccess::record(keeper), record);
        EXPECT_FALSE(ShapeAccess::shareRecord(keeper, writer));
        EXPECT_EQ(countOf(keeper), 1);
        EXPECT_EQ(countOf(writer), 1);
        EXPECT_EQ(keeper.shapeType(), kept.kind);
        for (auto const& getter : shapeGetters<KDRShape>) {
            SCOPED_TRACE(getter.name);
            for (bool const ofKeeper : {true, false}) {
                ShapeFields const& model = ofKeeper ? kept : fields;
                if (getter.kind == KDRShape::CurveLine && model.points.length() < 3)
                    continue;
                KDRShape const& shape = ofKeeper ? keeper : writer;
                ShapeAccess::kind(ShapeAccess::record(shape)) = getter.kind;
                ShapeValues expected;
                getter.expect(model, expected);
                ShapeValues out;
                ASSERT_TRUE(getter.read(shape, out));
                EXPECT_EQ(describe(out), describe(expected));
                ShapeAccess::kind(ShapeAccess::record(shape)) = model.kind;
            }
        }
    }
}

TEST(ShapeSharing, FromPointAndFromRect1OnASharedShapeLeaveAnEmptyOne)
{
    KDRPoint point(1.0, 2.0);
    KDRShape const keeper = circle(5.0);
    KDRShape first(keeper);
    first.fromPoint(point);
    EXPECT_EQ(first.shapeType(), 99u);
    KDRShape second(keeper);
    second.fromRect1(point, point);
    EXPECT_EQ(second.shapeType(), 99u);
    EXPECT_EQ(radiusOf(keeper), 5.0);
    EXPECT_EQ(countOf(keeper), 1);
}

TEST(ShapeRecord, CountsItsHolders)
{
    auto* const record = new KDRShapePrivate;
    EXPECT_EQ(record->refCount(), 1);
    EXPECT_EQ(record->addRef(), 2);
    EXPECT_EQ(record->addRef(), 3);
    EXPECT_EQ(record->refCount(), 3);
    record->decRef();
    EXPECT_EQ(record->refCount(), 2);
    record->decRef();
    EXPECT_EQ(record->refCount(), 1);
    record->decRef();
}

TEST(ShapeRecord, CountsWithItsMutexLocked)
{
    auto* const record = new KDRShapePrivate;
    QMutex& mutex = ShapeAccess::mutex(*record);
    auto const expectWaiting = [&mutex](auto const& operation) {
        mutex.lock();
        EXPECT_TRUE(waitsFor(operation, [&mutex] { mutex.unlock(); }));
    };
    int count = 0;
    expectWaiting([&] { count = record->addRef(); });
    EXPECT_EQ(count, 2);
    expectWaiting([&] { count = record->refCount(); });
    EXPECT_EQ(count, 2);
    expectWaiting([&] { record->decRef(); });
    EXPECT_EQ(record->refCount(), 1);
    record->decRef();
}

TEST(ShapeRecord, FreesItselfWithTheLastHolderAlone)
{
    long const before = allocations::live();
    auto* const record = new KDRShapePrivate;
    long const alive = allocations::live();
    EXPECT_GT(alive, before);
    record->addRef();
    record->decRef();
    EXPECT_EQ(allocations::live(), alive);
    record->decRef();
    EXPECT_EQ(allocations::live(), before);
}

// All fields filled; the model says with what.
ShapeFields fill(KDRShapePrivate& record, int number)
{
    ShapeFields fields;
    for (auto const& generator : shapeGenerators<KDRShapePrivate>) {
        ShapeValues in = shapeValues(number);
        generator.generate(record, in);
        generator.store(in, fields);
    }
    return fields;
}

void expectFields(KDRShapePrivate& record, ShapeFields const& fields)
{
    ASSERT_EQ(record.shapeType(), fields.kind);
    for (auto const& getter : shapeGetters<KDRShapePrivate>) {
        SCOPED_TRACE(getter.name);
        ShapeAccess::kind(record) = getter.kind;
        ShapeValues expected;
        getter.expect(fields, expected);
        ShapeValues out;
        ASSERT_TRUE(getter.read(record, out));
        EXPECT_EQ(describe(out), describe(expected));
    }
    ShapeAccess::kind(record) = fields.kind;
}

TEST(ShapeRecord, CopyLeavesContoursAndNumbersBehind)
{
    KDRShapePrivate record;
    ShapeFields fields = fill(record, 11);
    record.addRef();
    KDRShapePrivate copy(record);
    EXPECT_EQ(copy.refCount(), 1);
    EXPECT_EQ(record.refCount(), 2);
    expectFields(record, fields);
    fields.contours = KDRContourArray();
    fields.numbers = KDRNumberArray();
    expectFields(copy, fields);
}

TEST(ShapeRecord, AssignmentKeepsContoursNumbersAndTheCount)
{
    KDRShapePrivate record;
    ShapeFields fields = fill(record, 11);
    KDRShapePrivate target;
    ShapeFields const old = fill(target, 9);
    target.addRef();
    KDRShapePrivate& result = (target = record);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.refCount(), 2);
    EXPECT_EQ(record.refCount(), 1);
    fields.contours = old.contours;
    fields.numbers = old.numbers;
    expectFields(target, fields);
}

TEST(ShapeRecord, CopiesAreIndependent)
{
    KDRShapePrivate record;
    ShapeFields fields = fill(record, 11);
    KDRShapePrivate copy(record);
    fill(copy, 9);
    expectFields(record, fields);
}

TEST(ShapeOutOfMemory, ConstructionLeavesNothingBehind)
{
    EXPECT_GT(failAtEveryAllocation([] { KDRShape const shape; }, [] {}), 2);
    KDRShapePrivate record;
    fill(record, 11);
    EXPECT_GT(failAtEveryAllocation([&] { KDRShapePrivate const copy(record); }, [] {}), 2);
}

void expectFigure(KDRShape const& shape, ShapeFields const& fields)
{
    EXPECT_EQ(shape.shapeType(), fields.kind);
    for (auto const& getter : shapeGetters<KDRShape>) {
        if (getter.kind != fields.kind)
            continue;
        ShapeValues expected;
        getter.expect(fields, expected);
        ShapeValues out;
        EXPECT_TRUE(getter.read(shape, out));
        EXPECT_EQ(describe(out), describe(expected));
    }
}

TEST(ShapeOutOfMemory, AGeneratorThatFailsKeepsTheFigureAndTheSharing)
{
    for (bool const shared : {false, true}) {
        for (auto const& generator : shapeGenerators<KDRShape>) {
            // Over a figure of another kind, and over one whose every field it writes.
            for (bool const sameKind : {false, true}) {
                SCOPED_TRACE(generator.name);
                ShapeValues old = shapeValues(11);
                KDRShape shape = circle(5.0);
                ShapeFields fields;
                fields.kind = 2;
                fields.first = KDRPoint(3.0, 4.0);
                fields.p[0] = 5.0;
                if (sameKind) {
                    generator.generate(shape, old);
                    generator.store(old, fields);
                }
                KDRShape const sharer(shared ? shape : KDRShape());
                ShapeValues in = shapeValues(5);
                int const failures = failAtEveryAllocation(
                    [&] { generator.generate(shape, in); },
                    [&] {
                        EXPECT_EQ(countOf(shape), shared ? 2 : 1);
                        EXPECT_EQ(ShapeAccess::shareRecord(shape, sharer), shared);
                        expectFigure(shape, fields);
                    });
                if (shared) {
                    EXPECT_GT(failures, 2);
                }
            }
        }
    }
}

TEST(ShapeOutOfMemory, AGridThatFailsAppendsNoCell)
{
    ShapeValues in = shapeValues(5);
    KDRShape grid;
    grid.fromCircleMatrix(in.points, in.a, in.b, -1);
    KDRShapeArray cells;
    cells.push_back(circle(5.0));
    int const failures = failAtEveryAllocation(
        [&] { grid.toCircleMatrix(&cells, nullptr, nullptr, nullptr, nullptr); },
        [&] { EXPECT_EQ(cells.length(), 1); });
    EXPECT_GT(failures, 5);
    EXPECT_EQ(cells.length(), 6);
}

// Random operations on a pool of handles against shared values.

struct Pair
{
    KDRShape shape;
    std::shared_ptr<ShapeFields> model = std::make_shared<ShapeFields>();
};

ShapeFields& unshared(Pair& pair)
{
    if (pair.model.use_count() > 1)
        pair.model = std::make_shared<ShapeFields>();
    return *pair.model;
}

void generateRandomly(Pair& pair, std::mt19937& random)
{
    auto const& generator =
        shapeGenerators<KDRShape>[random() % std::size(shapeGenerators<KDRShape>)];
    ShapeValues in = shapeValues(static_cast<int>(random() % 30));
    generator.generate(pair.shape, in);
    generator.store(in, unshared(pair));
}

// One getter at random, and the one of the shape's kind.
void expectAgreement(Pair const& pair, std::mt19937& random)
{
    ASSERT_EQ(pair.shape.shapeType(), pair.model->kind);
    ASSERT_EQ(countOf(pair.shape), pair.model.use_count());
    auto const& picked = shapeGetters<KDRShape>[random() % std::size(shapeGetters<KDRShape>)];
    for (auto const& getter : shapeGetters<KDRShape>) {
        bool const matches = getter.kind == pair.model->kind;
        if (!matches && &getter != &picked)
            continue;
        ShapeValues expected;
        if (matches)
            getter.expect(*pair.model, expected);
        ShapeValues out;
        ASSERT_EQ(getter.read(pair.shape, out), matches) << getter.name;
        ASSERT_EQ(describe(out), describe(expected)) << getter.name;
    }
}

void runModel(unsigned seed, int steps)
{
    std::mt19937 random(seed);
    std::vector<Pair> pool(6);
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
        Pair& target = pool[random() % pool.size()];
        Pair const& source = pool[random() % pool.size()];
        switch (random() % 5) {
        case 0:
            target.shape = source.shape;
            target.model = source.model;
            break;
        case 1: {
            Pair copy{KDRShape(source.shape), source.model};
            generateRandomly(copy, random);
            target.shape = copy.shape;
            target.model = copy.model;
            break;
        }
        case 2:
            target.shape = KDRShape();
            target.model = std::make_shared<ShapeFields>();
            break;
        default:
            generateRandomly(target, random);
            break;
        }
        for (Pair const& pair : pool)
            ASSERT_EQ(countOf(pair.shape), pair.model.use_count());
        ASSERT_NO_FATAL_FAILURE(expectAgreement(target, random));
        ASSERT_NO_FATAL_FAILURE(expectAgreement(source, random));
    }
}

TEST(ShapeModel, AgreesWithSharedValuesUnderRandomOperations) { runModel(135792468, 1500); }

TEST(ShapeModel, LeavesNothingBehindAfterRandomOperations)
{
    // The first run makes what GoogleTest, Qt and the streams keep for the rest of the process.
    runModel(24680, 50);
    long const before = allocations::live();
    runModel(24680, 300);
    EXPECT_EQ(allocations::live(), before);
}

} // namespace
