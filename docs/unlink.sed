# Of the texts beside the pages: leaves the words of links to files that are no part of the documentation.
s!\[\([^]]*\)\](\.\./\(benchmarks\|tools\)/[^)]*)!\1!g
