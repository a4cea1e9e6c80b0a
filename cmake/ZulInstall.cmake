# What "cmake --install" puts where. Component runtime is what programs and users of the tool need, component development
# what is needed to build programs. Everything that is installed finds its neighbours by relative paths.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(cmakeFolder ${CMAKE_INSTALL_LIBDIR}/cmake/zulcore)
if(WIN32)
    set(docFolder doc)
    set(moduleFolder ${CMAKE_INSTALL_BINDIR})
    # For Microsoft's linker. LLVM's tool makes a file of the short form, which is a quarter as long.
    find_program(ZUL_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 x86_64-w64-mingw32-dlltool)
    add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/zulcore.lib VERBATIM
                       COMMAND ${ZUL_DLLTOOL} -m i386:x86-64 -d ${CMAKE_BINARY_DIR}/zulcore.def -D zulcore.dll
                               -l ${CMAKE_BINARY_DIR}/zulcore.lib
                       DEPENDS ${CMAKE_BINARY_DIR}/zulcore.def)
    add_custom_target(import_library DEPENDS ${CMAKE_BINARY_DIR}/zulcore.lib)
    add_dependencies(zulcore import_library)
    install(FILES $<TARGET_LINKER_FILE:zulcore> ${CMAKE_BINARY_DIR}/zulcore.lib DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT development)
else()
    set(docFolder ${CMAKE_INSTALL_DOCDIR})
    set(moduleFolder ${CMAKE_INSTALL_LIBDIR})
    set(installedName RENAME libzulcore.so.${PROJECT_VERSION})
    set(links ${CMAKE_BINARY_DIR}/links)
    file(MAKE_DIRECTORY ${links})
    file(CREATE_LINK libzulcore.so.${PROJECT_VERSION} ${links}/${ZUL_SONAME} SYMBOLIC)
    file(CREATE_LINK ${ZUL_SONAME} ${links}/libzulcore.so SYMBOLIC)
    install(FILES ${links}/${ZUL_SONAME} DESTINATION ${moduleFolder} COMPONENT runtime)
    install(FILES ${links}/libzulcore.so DESTINATION ${moduleFolder} COMPONENT development)
endif()

# As a plain file: what is done to targets, such as stripping, would break the seal.
install(FILES $<TARGET_FILE:zulcore> DESTINATION ${moduleFolder} COMPONENT runtime ${installedName})
if(TARGET zul)
    install(TARGETS zul RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()

file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/include/*.h ${CMAKE_SOURCE_DIR}/include/*.hpp)
install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

configure_file(cmake/zulcoreConfig.cmake.in zulcoreConfig.cmake @ONLY)
write_basic_package_version_file(zulcoreConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/zulcoreConfig.cmake ${CMAKE_BINARY_DIR}/zulcoreConfigVersion.cmake
        DESTINATION ${cmakeFolder} COMPONENT development)

file(RELATIVE_PATH pkgconfigToPrefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pkgconfigToPrefix ${pkgconfigToPrefix})
configure_file(cmake/zulcore.pc.in zulcore.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/zulcore.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(FILES LICENSE DESTINATION ${docFolder} COMPONENT runtime)
install(DIRECTORY docs/ DESTINATION ${docFolder} COMPONENT development
        FILES_MATCHING PATTERN *.md PATTERN *.json PATTERN *.svg)
install(DIRECTORY bindings/cpp DESTINATION ${docFolder} COMPONENT development PATTERN tests EXCLUDE)
install(DIRECTORY examples DESTINATION ${docFolder} COMPONENT development PATTERN __pycache__ EXCLUDE)

# The tool's own description, where the build has made it.
if(WIN32)
    install(FILES ${CMAKE_BINARY_DIR}/completions/zul.ps1 DESTINATION completions COMPONENT runtime OPTIONAL)
else()
    install(DIRECTORY ${CMAKE_BINARY_DIR}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime OPTIONAL
            FILES_MATCHING PATTERN *.1)
    foreach(file completions/zul.bash=bash-completion/completions/zul completions/_zul=zsh/site-functions/_zul
            completions/zul.fish=fish/vendor_completions.d/zul.fish)
        string(REGEX MATCH "(.*)=(.*)/(.*)" found ${file})
        install(FILES ${CMAKE_BINARY_DIR}/${CMAKE_MATCH_1} DESTINATION ${CMAKE_INSTALL_DATADIR}/${CMAKE_MATCH_2}
                RENAME ${CMAKE_MATCH_3} COMPONENT runtime OPTIONAL)
    endforeach()
endif()
