# Finds what the Python module needs: an interpreter with its development files, and pybind11. The
# first interpreter on the path may be one of the user's without them, so that the system's is tried
# as well; Python3_EXECUTABLE, when it is given, is the only one.

function(torlib_choose_python)
  if(Python3_EXECUTABLE)
    return()
  endif()
  set(question
      "import os, sys, sysconfig, numpy
os.stat(os.path.join(sysconfig.get_path('include'), 'Python.h'))
print(sys.executable, end='')")
  foreach(candidate python3 /usr/bin/python3)
    execute_process(COMMAND ${candidate} -c "${question}" RESULT_VARIABLE failed
                    OUTPUT_VARIABLE executable ERROR_QUIET)
    if(NOT failed)
      set(Python3_EXECUTABLE ${executable} CACHE FILEPATH "The interpreter for the Python module")
      return()
    endif()
  endforeach()
endfunction()

torlib_choose_python()
find_package(Python3 COMPONENTS Interpreter Development.Module QUIET)
set(PYBIND11_NOPYTHON ON)
find_package(pybind11 CONFIG QUIET)
