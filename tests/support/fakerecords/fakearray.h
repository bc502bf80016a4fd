#ifndef KDRDATA_TESTS_FAKEARRAY_H
#define KDRDATA_TESTS_FAKEARRAY_H

#include "fakecalls.h"

/// A core array of always three elements: it takes down its calls, with the number of each element
/// that it is given, and gives elements with the number 100 and their index.
///
/// How the numbers come into and out of an element, its header says by numberOf() and setNumber().
/// @tparam Argument what elements are taken as: `Element const` or, more narrowly, `Element`
template <class Element, class Argument>
class FakeArray
{
public:
    FakeArray() = default;
    FakeArray(FakeArray const&) = delete;
    FakeArray& operator=(FakeArray const&)
    {
        FakeCalls::note("array operator=");
        return *this;
    }

    int Append(Argument& value) { return note("Append", numberOf(value)); }
    int Append(FakeArray const& other)
    {
        return note(this == &other ? "Append itself" : "Append all");
    }
    int Insert(int index, Argument& value) { return note("Insert", index, numberOf(value)); }
    int Replace(int index, Argument& value) { return note("Replace", index, numberOf(value)); }
    int Remove(int index) { return note("Remove", index); }
    int Swap(int first, int second) { return note("Swap", first, second); }
    int Clear() { return note("Clear"); }
    int Length() const { return 3; }
    int Select(int index, Element* element) const
    {
        setNumber(*element, 100 + index);
        return note("Select", index);
    }
    Element const& operator[](int index) const
    {
        note("operator[]", index);
        setNumber(m_element, 55);
        return m_element;
    }

private:
    template <class... Numbers>
    static int note(char const* name, Numbers... numbers)
    {
        FakeCalls::note(name, numbers...);
        return 0;
    }

    mutable Element m_element;
};

#endif
