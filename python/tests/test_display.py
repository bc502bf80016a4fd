"""What notebooks show of values."""

import base64
import re
import struct
import xml.etree.ElementTree as xml
import zlib

import numpy
import pytest

import kdrdata
from kdrdata import Contour, Image, Region, Shape, ShapeArray


def decoded(png):
    """The pixels of a picture in 8 bits, read by the format's own rules."""
    assert png[:8] == b"\x89PNG\r\n\x1a\n"
    at, data, header = 8, b"", None
    while at < len(png):
        length, name = struct.unpack(">I4s", png[at : at + 8])
        body = png[at + 8 : at + 8 + length]
        header = struct.unpack(">IIBB", body[:10]) if name == b"IHDR" else header
        data += body if name == b"IDAT" else b""
        at += 12 + length
    width, height, depth, colour = header
    assert depth == 8
    channels = {0: 1, 2: 3, 6: 4}[colour]
    raw = zlib.decompress(data)
    step = width * channels
    rows = []
    above = bytes(step)
    for y in range(height):
        kind, row = raw[y * (step + 1)], bytearray(raw[y * (step + 1) + 1 : (y + 1) * (step + 1)])
        for i in range(step):
            left = row[i - channels] if i >= channels else 0
            corner = above[i - channels] if i >= channels else 0
            guess = left + above[i] - corner
            paeth = min((left, above[i], corner), key=lambda each: abs(guess - each))
            row[i] = (row[i] + (0, left, above[i], (left + above[i]) // 2, paeth)[kind]) % 256
        rows.append(bytes(row))
        above = row
    return numpy.frombuffer(b"".join(rows), "uint8").reshape(height, width, channels)


def test_an_image_is_shown_as_png():
    pixels = numpy.random.default_rng(1).integers(0, 256, (13, 17, 3)).astype("uint8")
    shown = decoded(Image.from_array(pixels)._repr_png_())
    assert numpy.array_equal(shown[:, :, ::-1], pixels)  # blue first, and red first in a picture


def test_values_of_other_types_are_stretched_to_8_bits():
    pixels = numpy.linspace(-5, 5, 256).reshape(16, 16)
    shown = decoded(Image.from_array(pixels)._repr_png_())
    assert numpy.array_equal(shown[:, :, 0].ravel(), numpy.arange(256))


def test_an_image_without_pixels_is_shown_in_words():
    assert Image()._repr_png_() is None
    assert "<img" not in Image()._repr_html_() and "without pixels" in Image()._repr_html_()


def test_the_page_of_an_image_holds_the_same_picture():
    image = Image.from_array(numpy.arange(12, dtype="uint8").reshape(3, 4))
    html = image._repr_html_()
    picture = re.search(r'src="data:image/png;base64,([^"]+)"', html).group(1)
    assert base64.b64decode(picture) == image._repr_png_()
    assert "4 x 3" in xml.fromstring(html).find("figcaption").text


def figures_in(html):
    tree = xml.fromstring(html)
    svg = tree.find("{http://www.w3.org/2000/svg}svg")
    return svg, [each for each in svg if "data-kind" in each.attrib]


def test_a_circle_is_drawn_where_it_is():
    svg, (circle,) = figures_in(Shape.circle(10, 20, 5)._repr_html_())
    assert [float(circle.get(name)) for name in ("cx", "cy", "r")] == [10, 20, 5]
    left, top, width, height = map(float, svg.get("viewBox").split())
    assert left < 5 and top < 15 and left + width > 15 and top + height > 25


def test_a_region_is_drawn_run_by_run():
    html = Region.from_mask(numpy.eye(3))._repr_html_()
    _, (area,) = figures_in(html)
    assert area.get("d").count("M") == 3
    assert "3 runs" in html


def test_a_text_is_drawn_inside_of_the_drawing():
    svg, (text,) = figures_in(Shape.text(1000, 2000, "<a & b>")._repr_html_())
    assert text.text == "<a & b>"
    left, top, width, height = map(float, svg.get("viewBox").split())
    assert left < 1000 < left + width and top < 2000 < top + height


@pytest.mark.parametrize(
    "value, count",
    [
        (ShapeArray([Shape.circle(1, 2, 3), Shape.line((0, 0), (9, 9)), Shape()]), 2),
        (Contour([(0, 0), (5, 0), (5, 5)]), 1),
        (Shape.circle_matrix([(0, 0), (9, 9)], 1, 2), 1),
        (Shape(), 0),
        (ShapeArray(), 0),
        (Region(), 0),
    ],
)
def test_figures_are_drawn(value, count):
    assert len(figures_in(value._repr_html_())[1]) == count
