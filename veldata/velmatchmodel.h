#ifndef VELDATA_VELMATCHMODEL_H
#define VELDATA_VELMATCHMODEL_H

#include <vector>

#include <veldata/veldata_export.h>

/// A trained template-matching model: a type and a payload of bytes that nobody looks into.
///
/// A model is exchanged as one record of bytes:
///
/// | bytes | hold |
/// |---|---|
/// | 0..3 | the letters `VMM1` |
/// | 4..7 | the type, a signed number, least significant byte first |
/// | 8..15 | the number of payload bytes, 0..2^31, least significant byte first |
/// | 16.. | the payload |
///
/// Copies are deep; a moved-from model is as a new one. Copying throws std::bad_alloc when memory
/// runs out. One model may be read from several threads at once, but not while one of them changes
/// it.
class VELDATA_EXPORT VelMatchModel
{
public:
    /// A model of type 0 with an empty payload; allocates nothing.
    VelMatchModel() noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelMatchModel(VelMatchModel const& other);

    /// Takes the model over; @p other is left as a new model.
    VelMatchModel(VelMatchModel&& other) noexcept;

    /// Destroys the model.
    ~VelMatchModel();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelMatchModel& operator=(VelMatchModel const& other);

    /// Takes the model over; @p other is left as a new model. Assigning a model to itself does
    /// nothing.
    VelMatchModel& operator=(VelMatchModel&& other) noexcept;

    /// The type of the model, as it was given.
    int ModelType() const noexcept;

    /// The length of the record in bytes: 16 and those of the payload.
    unsigned long long GetLenth() const noexcept;

    /// Writes the record to @p record, which must have room for GetLenth() bytes. Answers 1, or 0
    /// for null.
    int GetData(unsigned char* record) const noexcept;

    /// Becomes the model of @p record. Answers 1, or 0, with nothing changed, for null, for a
    /// record that does not begin with `VMM1`, for a payload of more than 2^31 bytes, and where
    /// memory runs out. The record tells its own length: nothing behind the letters is read if they
    /// are wrong, nothing behind the first 16 bytes if the payload is too long, and otherwise all
    /// the bytes that the record announces.
    int SetData(unsigned char const* record) noexcept;

private:
    int type;
    std::vector<unsigned char> payload;
};

#endif
