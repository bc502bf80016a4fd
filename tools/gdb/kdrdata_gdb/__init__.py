"""GDB shows the values of KDRData's classes as docs/text-forms.md says.

Everything is read from memory; no function of the program is called, and no debug information of
the libraries is looked at. What lies where is written in three tables: layouts of the library's
records (records.py), of Qt's containers (qt.py) and of the core data library's objects (core.py).
Another core library takes another core.py.
"""
