# Moves an installed tree, so that nothing is left where it was installed to.
file(REMOVE_RECURSE "${TO}")
cmake_path(GET TO PARENT_PATH parent)
file(MAKE_DIRECTORY "${parent}")
file(RENAME "${FROM}" "${TO}")
