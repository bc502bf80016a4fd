from ._kdrdata import *
from ._kdrdata import __version__ as __version__
from ._kinds import Kind as Kind
