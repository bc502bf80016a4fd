#ifndef KDRDATA_KDRMATCHMODEL_H
#define KDRDATA_KDRMATCHMODEL_H

#include <kdrdata/kdrdata_export.h>

class VelMatchModel;
struct KDRInternal;

/// A trained template-matching model: bytes that nobody but the core library understands.
///
/// The handle owns one core-library model (`VelMatchModel`) and forwards to it; copies are deep.
///
/// @code
/// std::vector<unsigned char> record(model.GetLenth());
/// model.GetData(record.data());
/// copy.SetData(record.data());
/// @endcode
///
/// Out of memory is std::bad_alloc when copying, and failure in SetData().
///
/// Threads: one model may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRMatchModel
{
public:
    /// The core library's default model.
    KDRMatchModel();
    /// Copies the model of @p other.
    KDRMatchModel(KDRMatchModel const& other);
    /// Destroys the core model.
    ~KDRMatchModel();

    /// Copies the model of @p other. Returns this handle.
    KDRMatchModel& operator=(KDRMatchModel const& other);
    /// Copies the model of @p other too, which keeps its own; there is no move construction either.
    /// Returns this handle. Kept on purpose.
    KDRMatchModel& operator=(KDRMatchModel&& other);

    /// The core library's code for the type of the model (its `ModelType`).
    int ModelType() const;
    /// The length in bytes of what GetData() writes (the core model's `GetLenth`). The spelling is
    /// the interface's own. Kept on purpose.
    unsigned long long GetLenth() const;
    /// Writes the model to @p data, which must have room for GetLenth() bytes (the core model's
    /// `GetData`). Returns the core library's result: non-zero for success, 0 for a null pointer.
    int GetData(unsigned char* data) const;
    /// Becomes the model that GetData() wrote to @p data, which stays the caller's and tells its
    /// own length (the core model's `SetData`). Returns the core library's result: non-zero for
    /// success; 0 for null, for bytes that are no model and where memory runs out, and the model is
    /// then as it was. The length that the bytes tell is believed: where there are fewer of them,
    /// memory beyond their end is read. Bytes from elsewhere are to be checked before.
    int SetData(unsigned char* data);

private:
    friend struct KDRInternal;
    VelMatchModel* d;
};

#endif
