# torlib_instruction_sets(TARGET AVX2 SOURCES... AVX512 SOURCES...): sources of a target for newer
# x86 processors, each with the flags of its set. Which of them runs is chosen at run time, see
# torlib/platform/instruction_set.h; TORLIB_X86_KERNELS tells the target's code that they are there.
function(torlib_instruction_sets TARGET)
  cmake_parse_arguments(FOR "" "" "AVX2;AVX512" ${ARGN})
  if(NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    return()
  endif()
  target_sources(${TARGET} PRIVATE ${FOR_AVX2} ${FOR_AVX512})
  target_compile_definitions(${TARGET} PRIVATE TORLIB_X86_KERNELS)
  set_property(SOURCE ${FOR_AVX2} APPEND PROPERTY COMPILE_OPTIONS -mavx2 -mfma)
  set_property(SOURCE ${FOR_AVX512} APPEND PROPERTY COMPILE_OPTIONS -mavx512f -mfma
                                                    -mprefer-vector-width=512)
endfunction()
