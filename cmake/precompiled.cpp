// Holds the header that the tests share; see kdr_precompile_gtest.
