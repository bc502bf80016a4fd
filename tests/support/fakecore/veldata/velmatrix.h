#ifndef KDRDATA_TESTS_FAKECORE_VELMATRIX_H
#define KDRDATA_TESTS_FAKECORE_VELMATRIX_H

#include <string>
#include <vector>

#include <veldata/velvar.h>

/// As narrow as a core library may make it: no plain number becomes one by itself.
enum class VelDataType : int {};

/// A core matrix that does no work: it writes down each call that changes or copies something, with
/// its arguments, and answers what the test told it to. It has the operations that the library is
/// built on and no others.
class VelMatrix
{
public:
    VelMatrix() { ++alive; }
    VelMatrix(int newRows, int newColumns, VelDataType newType) : VelMatrix()
    {
        note("sized", newRows, newColumns, static_cast<int>(newType));
    }
    VelMatrix(VelMatrix const&) = delete;
    ~VelMatrix() { --alive; }

    /// Takes over the row count, by which a test tells one matrix from another.
    VelMatrix& operator=(VelMatrix const& other)
    {
        note("operator=");
        rows = other.rows;
        return *this;
    }

    VelMatrix const& DeepCopy() const
    {
        note("DeepCopy");
        return *this;
    }
    int SetMatrix(int newRows, int newColumns, VelDataType newType)
    {
        note("SetMatrix", newRows, newColumns, static_cast<int>(newType));
        return answer;
    }
    int Rows() const { return rows; }
    int Cols() const { return columns; }
    VelDataType Type() const { return static_cast<VelDataType>(type); }
    void* MatrixData() const { return data; }
    int Select(int row, int column, VelVar* value) const
    {
        note("Select", row, column);
        *value = element;
        return answer;
    }
    int Replace(int row, int column, VelVar const& value)
    {
        note("Replace", row, column);
        element = value;
        return answer;
    }

    static std::vector<std::string> calls;
    static int answer;
    static int alive;

    int rows = 2;
    int columns = 3;
    int type = 0;
    void* data = nullptr;
    /// What an element is read as, and what it was last written with.
    VelVar element;

    template <class... Numbers>
    static void note(char const* name, Numbers... numbers)
    {
        std::string call = name;
        for (int const number : std::vector<int>{numbers...})
            call += ' ' + std::to_string(number);
        calls.push_back(call);
    }
};

#endif
