# Makes the application bundle Corvane.app: property list, icon, texts and signature.

# Signs a bundle after everything in it is in its place; not where there is no system to sign for.
function(sign_bundle target)
    if(CMAKE_CROSSCOMPILING)
        return()
    endif()
    # The hardened runtime is for builds that are handed out; with it an ad-hoc signature gains
    # nothing.
    set(options --force --sign "${CORVANE_SIGNING_IDENTITY}")
    if(NOT CORVANE_SIGNING_IDENTITY STREQUAL "-")
        list(APPEND options --options runtime --timestamp)
    endif()
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND codesign ${options} "$<TARGET_BUNDLE_DIR:${target}>"
        COMMENT "Signing ${target}"
        VERBATIM)
endfunction()

# Named in the property list.
set(CORVANE_URL_SCHEME corvane)
set_target_properties(corvane PROPERTIES
    OUTPUT_NAME Corvane
    RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}"
    MACOSX_BUNDLE TRUE
    MACOSX_BUNDLE_INFO_PLIST "${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in")

set(contents "${PROJECT_BINARY_DIR}/Corvane.app/Contents")
# The signature covers these: where one of them changes, the program is linked and signed anew.
set(signed_files "${contents}/Info.plist")

find_program(RSVG_CONVERT rsvg-convert)
find_package(Python3 COMPONENTS Interpreter)
if(RSVG_CONVERT AND Python3_FOUND)
    set(drawing "${PROJECT_SOURCE_DIR}/resources/AppIcon.svg")
    set(make_icns "${PROJECT_SOURCE_DIR}/packaging/macos/make-icns")
    set(icon "${CMAKE_CURRENT_BINARY_DIR}/AppIcon.icns")
    add_custom_command(OUTPUT "${icon}"
        COMMAND Python3::Interpreter "${make_icns}" "${drawing}" "${icon}"
        DEPENDS "${drawing}" "${make_icns}"
        COMMENT "Rendering the application icon"
        VERBATIM)
    set_source_files_properties("${icon}" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    target_sources(corvane PRIVATE "${icon}")
    list(APPEND signed_files "${contents}/Resources/AppIcon.icns")
else()
    message(WARNING "The bundle gets no icon: rsvg-convert or Python is missing")
endif()

file(GLOB translations CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/resources/translations/*/Localizable.strings")
foreach(table IN LISTS translations)
    cmake_path(GET table PARENT_PATH folder)
    cmake_path(GET folder FILENAME language)
    set_source_files_properties("${table}" PROPERTIES
        MACOSX_PACKAGE_LOCATION "Resources/${language}")
    list(APPEND signed_files "${contents}/Resources/${language}/Localizable.strings")
endforeach()
target_sources(corvane PRIVATE ${translations})
set_property(TARGET corvane APPEND PROPERTY LINK_DEPENDS ${signed_files})
sign_bundle(corvane)

if(NOT CMAKE_CROSSCOMPILING)
    install(TARGETS corvane BUNDLE DESTINATION .)
    set(CPACK_GENERATOR DragNDrop)
    set(CPACK_PACKAGE_NAME Corvane)
    set(CPACK_PACKAGE_VENDOR Corvane)
    set(CPACK_PACKAGE_FILE_NAME "Corvane-${PROJECT_VERSION}")
    include(CPack)
endif()
