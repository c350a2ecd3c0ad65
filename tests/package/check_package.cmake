# Installs the build into a scratch prefix and builds a consumer three ways:
# find_package from the install, find_package from the build tree, pkg-config.
# Variables: BUILD_DIR, SOURCE_DIR, WORK_DIR.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

foreach(variant installed buildtree)
    if(variant STREQUAL "installed")
        set(where "-DCMAKE_PREFIX_PATH=${prefix}")
    else()
        set(where "-DKtCmdQtUtils_DIR=${BUILD_DIR}")
    endif()
    run(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/${variant}" -G Ninja ${where})
    run(${CMAKE_COMMAND} --build "${WORK_DIR}/${variant}")
    run("${WORK_DIR}/${variant}/consumer")
endforeach()

# pkg-config, as a build system without CMake would link it.
file(GLOB pcdir "${prefix}/lib*/pkgconfig" "${prefix}/lib/*/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
execute_process(COMMAND pkg-config --cflags --libs KtCmdQtUtils OUTPUT_VARIABLE flags RESULT_VARIABLE rc
                OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know KtCmdQtUtils")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
string(REGEX MATCH "-L[^ ;]+" libflag "${flags}")
string(SUBSTRING "${libflag}" 2 -1 libdir)
run(c++ -std=c++17 -fPIC "${SOURCE_DIR}/main.cpp" -o "${WORK_DIR}/pkgconfig-consumer" ${flags}
    "-Wl,-rpath,${libdir}")
run("${WORK_DIR}/pkgconfig-consumer")
