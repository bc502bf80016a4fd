#include <kdrdata/geometry3d/kdrrangeimage.h>

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;
using R = KDRRangeImage;
using NA = KDRNumberArray;
using Path = KDRString const&;

template <class Table>
void expectOfEveryRangeImage(Table table)
{
    R none;
    R copy(none);
    for (R* const image : {&none, &copy}) {
        Answers<R> answers(*image);
        table(answers);
    }
}

TEST(RangeImage, GeometryIsMinusOne)
{
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("Type", as<int() const>(&R::Type), -1);
        answers.row("dataType", as<int() const>(&R::dataType), -1);
        answers.row("width", as<int() const>(&R::width), -1);
        answers.row("height", as<int() const>(&R::height), -1);
        answers.row("step", as<int() const>(&R::step), -1);
    });
}

TEST(RangeImage, NumbersAreZeroAndPointersNull)
{
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("minValue", as<double() const>(&R::minValue), 0.0);
        answers.row("maxValue", as<double() const>(&R::maxValue), 0.0);
        answers.row("resolutionX", as<double() const>(&R::resolutionX), 0.0);
        answers.row("resolutionY", as<double() const>(&R::resolutionY), 0.0);
        answers.row("resolutionZ", as<double() const>(&R::resolutionZ), 0.0);
        answers.row("offsetX", as<double() const>(&R::offsetX), 0.0);
        answers.row("offsetY", as<double() const>(&R::offsetY), 0.0);
        answers.row("offsetZ", as<double() const>(&R::offsetZ), 0.0);
        answers.row("getValue", as<double(int, int) const>(&R::getValue), 0.0);
        answers.row("Cx", as<double() const>(&R::Cx), 0.0);
        answers.row("Cy", as<double() const>(&R::Cy), 0.0);
        answers.row("iny_fx", as<double() const>(&R::iny_fx), 0.0);
        answers.row("inv_fy", as<double() const>(&R::inv_fy), 0.0);
        answers.row("dataPtr", as<void*() const>(&R::dataPtr), null);
        answers.row("colorDataPtr", as<void*() const>(&R::colorDataPtr), null);
    });
}

TEST(RangeImage, SettersDoNothing)
{
    using Six = void(double, double, double, double, double, double);
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("operator=", as<R&(R const&)>(&R::operator=), itself);
        answers.row("clear", as<void()>(&R::clear), nothing);
        answers.row("setSize", as<void(int, int, int)>(&R::setSize), nothing);
        answers.row("setColorSize", as<void(int, int, int)>(&R::setColorSize), nothing);
        answers.row("setInfo", as<Six>(&R::setInfo), nothing);
        answers.row("SetInfo", as<void(NA const&)>(&R::SetInfo), nothing);
        answers.row("GetInfo", as<void(NA*)>(&R::GetInfo), nothing);
        answers.row("SetType", as<void(int)>(&R::SetType), nothing);
    });
}

TEST(RangeImage, TakesNoPixels)
{
    using SetValue = bool(void*, int, double, double, int, int);
    using SetColorValue = bool(void*, int, int, int, int);
    using CreateFromNumbers = bool(void*, int, int, int, int, double, double, double, double,
                                   double, double, double, double);
    using CreateFromArray = bool(void*, int, int, int, int, double, double, NA const&);
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("setValue", as<SetValue>(&R::setValue), false);
        answers.row("setColorValue", as<SetColorValue>(&R::setColorValue), false);
        answers.row("createRangeImage", as<CreateFromNumbers>(&R::createRangeImage), false);
        answers.row("CreateRangeImage", as<CreateFromArray>(&R::CreateRangeImage), false);
    });
}

TEST(RangeImage, AnswersDefaultObjects)
{
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("GetParaValue", as<KDRNumber(int) const>(&R::GetParaValue), aDefault);
        answers.row("deepCopyValues", as<KDRImage() const>(&R::deepCopyValues), aDefault);
        answers.row("deepCopy", as<R()>(&R::deepCopy), aDefault);
    });
}

TEST(RangeImage, LoadByTwoNumbersAloneAnswersTrue)
{
    expectOfEveryRangeImage([](Answers<R>& answers) {
        answers.row("load flag", as<bool(Path, bool)>(&R::load), false);
        answers.row("load numbers", as<bool(Path, double, double)>(&R::load), true);
        answers.row("save", as<bool(Path)>(&R::save), false);
        answers.row("save flag", as<bool(Path, bool)>(&R::save), false);
    });
    KDRString const missing("/nowhere/scene.tif");
    EXPECT_TRUE(R().load(missing, 0.0, 0.0));
    EXPECT_TRUE(R().load(missing, 0, 0));
    EXPECT_FALSE(R().load(missing, true));
    EXPECT_FALSE(R().load(missing, false));
}

TEST(RangeImage, SaveWritesNoFile)
{
    QTemporaryDir const directory;
    ASSERT_TRUE(directory.isValid());
    QByteArray const name = QFile::encodeName(directory.filePath("range.tif"));
    KDRString const path(name.constData());
    EXPECT_FALSE(R().save(path));
    EXPECT_FALSE(R().save(path, true));
    EXPECT_FALSE(QFile::exists(directory.filePath("range.tif")));
}

TEST(RangeImage, GetInfoLeavesTheArrayAsItWas)
{
    NA info;
    info.push_back(KDRNumber(3));
    R image;
    image.GetInfo(&info);
    ASSERT_EQ(info.length(), 1);
    EXPECT_EQ(info[0].toInt(), 3);
}

} // namespace
