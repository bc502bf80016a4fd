#ifndef KDRDATA_TESTS_FAKECORE_VELMATRIXARRAY_H
#define KDRDATA_TESTS_FAKECORE_VELMATRIXARRAY_H

#include <veldata/velmatrix.h>

/// A core array of always three matrices that does no work: it writes its calls into those of
/// VelMatrix.
class VelMatrixArray
{
public:
    VelMatrixArray() = default;
    VelMatrixArray(VelMatrixArray const&) = delete;
    VelMatrixArray& operator=(VelMatrixArray const&)
    {
        VelMatrix::note("array operator=");
        return *this;
    }

    int Append(VelMatrix const&) { return note("Append one"); }
    int Append(VelMatrixArray const&) { return note("Append all"); }
    int Insert(int index, VelMatrix const&) { return note("Insert", index); }
    int Remove(int index) { return note("Remove", index); }
    int Replace(int index, VelMatrix const&) { return note("Replace", index); }
    int Swap(int first, int second) { return note("Swap", first, second); }
    int Clear() { return note("Clear"); }
    int Length() const { return 3; }
    int Select(int index, VelMatrix* matrix) const
    {
        matrix->rows = 100 + index;
        return note("Select", index);
    }
    VelMatrix const& operator[](int index) const
    {
        note("operator[]", index);
        return element;
    }

private:
    template <class... Numbers>
    static int note(char const* name, Numbers... numbers)
    {
        VelMatrix::note(name, numbers...);
        return 0;
    }

    VelMatrix element;
};

#endif
