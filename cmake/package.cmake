# The Debian package: `cpack -G DEB` in a build folder, or scripts/make_package.sh.
set(CPACK_PACKAGE_NAME zaview)
set(CPACK_PACKAGE_VERSION ${ZAVIEW_VERSION})
set(CPACK_PACKAGE_CONTACT "The ZAVIEW engineers <zaview@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "tables, statistics and plots of ship motion simulations")
set(CPACK_PACKAGE_DESCRIPTION
"Reads the runs of ZAVO, a time-domain simulation of ships in waves, and gives what
they were made for: time histories, load distributions, spectra, extremes, statistics
with confidence intervals of one run and of ensembles, hydrostatics on waves, roll
decay, pictures and animations. By menu, by window and by scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the program opens when it is asked for pictures, letters and NetCDF files, beside what it is linked with.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcairo2, libfreetype6, libgd3, libegl1, libnetcdf19")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ffmpeg, man-db, bash-completion")
include(CPack)
