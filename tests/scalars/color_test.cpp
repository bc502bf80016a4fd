#include <kdrdata/scalars/kdrcolor.h>
#include <kdrdata/scalars/kdrcolorarray.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "../support/fixedanswers.h"

namespace {

using namespace FixedAnswers;
using A = KDRColorArray;
using C = KDRColor;

TEST(Color, ComponentsAreMinusOne)
{
    C none;
    C some(255, 0, 0, 255);
    C copy(some);
    for (C* const color : {&none, &some, &copy}) {
        Answers<C> answers(*color);
        answers.row("operator=", as<C&(C const&)>(&C::operator=), itself);
        answers.row("getRed", as<int() const>(&C::getRed), -1);
        answers.row("getGreen", as<int() const>(&C::getGreen), -1);
        answers.row("getBlue", as<int() const>(&C::getBlue), -1);
        answers.row("getAlpha", as<int() const>(&C::getAlpha), -1);
    }
}

TEST(ColorArray, AnswersConstants)
{
    std::string buffer(640, 'x');
    A none;
    A grey(&buffer[0], 32, 20);
    A coloured(&buffer[0], 16, 10, 4);
    A copy(coloured);
    for (A* const array : {&none, &grey, &coloured, &copy}) {
        Answers<A> answers(*array);
        answers.row("operator=", as<A&(A const&)>(&A::operator=), itself);
        answers.row("setSize", as<void(int, int, int)>(&A::setSize), nothing);
        answers.row("setColor", as<void(int)>(&A::setColor), nothing);
        answers.row("append", as<void(A const&)>(&A::append), nothing);
        answers.row("create", as<void(int, int)>(&A::create), nothing);
        answers.row("clear", as<void()>(&A::clear), nothing);
        answers.row("setValue", as<bool(void*, int, int, int)>(&A::setValue), false);
        answers.row("createColorArray", as<bool(void*, int, int, int)>(&A::createColorArray),
                    false);
        answers.row("width", as<int() const>(&A::width), -1);
        answers.row("height", as<int() const>(&A::height), -1);
        answers.row("length", as<int() const>(&A::length), -1);
        answers.row("channel", as<int() const>(&A::channel), -1);
        answers.row("Data", as<void*() const>(&A::Data), null);
        answers.row("replace", as<bool(int, C&)>(&A::replace), false);
        answers.row("select", as<bool(int, C*) const>(&A::select), false);
        answers.row("operator[]", as<C(int) const>(&A::operator[]), aDefault);
        answers.row("deepCopy", as<A()>(&A::deepCopy), aDefault);
    }
    EXPECT_EQ(buffer, std::string(640, 'x'));
}

TEST(ColorArray, GeometryIsMinusOneAfterItWasGiven)
{
    char buffer[4] = {};
    A array(buffer, 2, 2);
    array.setSize(2, 2, 1);
    EXPECT_EQ(array.width(), -1);
    EXPECT_EQ(array.length(), -1);
    EXPECT_FALSE(array.setValue(buffer, 2, 2, 1));
    EXPECT_EQ(array.Data(), nullptr);
}

TEST(Colors, HoldNothing)
{
    EXPECT_TRUE(std::is_empty<C>::value);
    EXPECT_TRUE(std::is_empty<A>::value);
}

} // namespace
