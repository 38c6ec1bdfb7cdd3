# Read by cpack for each kind of package. The .deb moves what debuggers need into a package of its own, which
# takes programs that still have it.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_STRIP_FILES ON)
endif()
