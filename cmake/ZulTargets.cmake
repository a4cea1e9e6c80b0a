# zul_own_code(target...): code of this project meets every warning; headers of others are exempt.
function(zul_own_code)
    foreach(target IN LISTS ARGN)
        target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow>"
                               "$<$<COMPILE_LANGUAGE:C,CXX>:-Wconversion;-Wsign-conversion;-Wcast-qual;-Wformat=2>"
                               "$<$<COMPILE_LANGUAGE:C,CXX>:-Werror>")
        # Of std::string's own concatenation GCC 12 believes that it may overlap (GCC bug 105651).
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
    endforeach()
endfunction()

# zul_add_test(name program [argument...]): one test of this build, in a working folder of its own.
function(zul_add_test name)
    set(folder ${CMAKE_BINARY_DIR}/work/${name})
    file(MAKE_DIRECTORY ${folder})
    add_test(NAME ${ZUL_FLAVOUR}.${name} COMMAND ${ARGN} WORKING_DIRECTORY ${folder})
    # Without a display Wine answers a message box at once instead of waiting for somebody.
    set_tests_properties(${ZUL_FLAVOUR}.${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "$<$<PLATFORM_ID:Windows>:DISPLAY=>")
endfunction()
