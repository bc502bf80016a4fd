# Of the texts beside the pages: leaves the words of links that the documentation cannot follow, to files that
# are no part of it and to headings, whose names differ.
s!\[\([^]]*\)\](\.\./\(benchmarks\|tools\)/[^)]*)!\1!g
s!\[\([^]]*\)\](#[^)]*)!\1!g
