"""Small records: fonts, poses, alignments, models, and what carries nothing."""

import copy
import pickle
import struct

import numpy
import pytest

import kdrdata
from kdrdata import Font, MatchModel, Matrix, MatrixArray, Pose2D, Pose3D, ROIAlignment

PLACEHOLDERS = [
    "Point3D",
    "Vector3d",
    "Shape3D",
    "RangeImage",
    "Contour3D",
    "Matrix3",
    "Matrix4",
    "Quaternion",
    "DualQuaternion",
    "PointCloud",
    "Plane3D",
]


def all_copies(value):
    return [
        copy.copy(value),
        copy.deepcopy(value),
        *(pickle.loads(pickle.dumps(value, protocol=i)) for i in range(6)),
    ]


def test_a_font_has_a_face_a_size_a_weight_and_a_style():
    font = Font()
    assert (font.face_name, font.size, font.weight, font.bold) == ("", 24, 400, False)
    assert (font.italic, font.underline, font.strike_out) == (0, 0, 0)
    other = Font("Grün", size=-3, weight=700, bold=True, italic=200, underline=1, strike_out=2)
    assert (other.face_name, other.size, other.weight, other.bold) == ("Grün", -3, 700, True)
    assert (other.italic, other.underline, other.strike_out) == (200, 1, 2)
    for name in ("face_name", "size", "weight", "bold", "italic", "underline", "strike_out"):
        assert font != other, name
        setattr(font, name, getattr(other, name))
    assert font == other
    assert all(each == other for each in all_copies(other))


def test_a_flag_of_a_font_is_a_byte():
    with pytest.raises(TypeError):
        Font(italic=256)
    with pytest.raises(TypeError):
        Font().underline = -1
    font = Font(italic=True)
    assert font.italic == 1


@pytest.mark.parametrize("pose", [Pose2D, Pose3D])
def test_a_pose_keeps_its_numbers(pose):
    names = ["x", "y", "rz"] if pose is Pose2D else ["x", "y", "z", "rx", "ry", "rz"]
    zero = pose()
    assert [getattr(zero, name) for name in names] == [0.0] * len(names)
    values = [i + 0.25 for i in range(len(names))]
    made = pose(*values)
    assert [getattr(made, name) for name in names] == values
    assert made == pose(**dict(zip(names, values)))
    assert repr(made) == f"{pose.__name__}({', '.join(map(repr, values))})"
    for name in names:
        other = copy.copy(made)
        setattr(other, name, 77.0)
        assert other != made and getattr(other, name) == 77.0
    assert all(each == made for each in all_copies(made))
    assert kdrdata.Variant(made).value == made


def test_an_alignment_carries_matrices():
    matrices = MatrixArray([Matrix.from_array(numpy.eye(3)), Matrix(2, 3)])
    alignment = ROIAlignment(matrices)
    assert alignment.matrices == matrices
    assert alignment == ROIAlignment(list(matrices)) and alignment != ROIAlignment()
    assert all(each == alignment for each in all_copies(alignment))
    alignment.matrices = []
    assert len(alignment.matrices) == 0


def model_bytes(kind, payload):
    return b"VMM1" + struct.pack("<iQ", kind, len(payload)) + payload


def test_a_model_is_its_bytes():
    data = model_bytes(-7, bytes(range(256)))
    model = MatchModel.from_bytes(data)
    assert model.model_type == -7 and model.to_bytes() == data
    assert model == MatchModel.from_bytes(bytearray(data)) and model != MatchModel()
    assert all(each == model for each in all_copies(model))
    assert MatchModel.from_bytes(MatchModel().to_bytes()) == MatchModel()


def test_bytes_that_are_no_model_are_refused():
    data = model_bytes(3, b"payload")
    longer = b"VMM1" + struct.pack("<iQ", 3, 2**31 + 1) + b"payload"
    for wrong in [b"", b"VMM1", b"VMM2" + data[4:], data + b"x", longer]:
        with pytest.raises(ValueError):
            MatchModel.from_bytes(wrong)
    for length in range(len(data)):
        with pytest.raises(ValueError):
            MatchModel.from_bytes(data[:length])


@pytest.mark.parametrize("name", PLACEHOLDERS)
def test_what_carries_nothing_is_there_as_its_class(name):
    cls = getattr(kdrdata, name)
    value = cls()
    assert value == cls() and not value != cls()
    assert repr(value) == f"{name}()"
    assert all(type(each) is cls and each == value for each in all_copies(value))
    assert type(kdrdata.Variant(value).value) is cls
    for other in PLACEHOLDERS:
        if other != name:
            assert value != getattr(kdrdata, other)()


def test_a_list_of_shapes_in_space_has_a_length():
    shapes = kdrdata.Shape3DArray([kdrdata.Shape3D()] * 3)
    assert len(shapes) == 3 and shapes[-1] == kdrdata.Shape3D()
    assert all(each == shapes for each in all_copies(shapes))
    assert shapes != shapes[:2]
