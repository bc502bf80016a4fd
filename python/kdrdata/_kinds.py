"""The kinds of a variant."""

import enum


class Kind(enum.IntEnum):
    """The kind of a variant. The numbers are those of saved values and of C++."""

    BOOL = 0
    NUMBER = 1
    STRING = 2
    POINT = 3
    IMAGE = 4
    SHAPE = 5
    POINT_CLOUD = 6
    CONTOUR = 7
    ROI_ALIGNMENT = 8
    POSE_2D = 9
    MATRIX = 10
    BUFFER = 11
    CHAR = 12

    POINT_3D = 500
    VECTOR_3D = 501
    SHAPE_3D = 502
    POSE_3D = 503
    RANGE_IMAGE = 504
    CONTOUR_3D = 505
    MATRIX_3 = 506
    MATRIX_4 = 507
    QUATERNION = 508
    DUAL_QUATERNION = 509

    BOOL_ARRAY = 1000
    NUMBER_ARRAY = 1001
    STRING_ARRAY = 1002
    POINT_ARRAY = 1003
    IMAGE_ARRAY = 1004
    RANGE_IMAGE_ARRAY = 1005
    SHAPE_ARRAY = 1006
    POINT_CLOUD_ARRAY = 1007
    CONTOUR_ARRAY = 1008
    MATRIX_ARRAY = 1009
    BUFFER_ARRAY = 1010

    POINT_3D_ARRAY = 1500
    SHAPE_3D_ARRAY = 1501
    VECTOR_3D_ARRAY = 1502
    CONTOUR_3D_ARRAY = 1503

    VARIANT_ARRAY = 1800
    PLANE_3D = 1801
    PLANE_3D_ARRAY = 1802

    NONE = 2000
