# How modules and their resource modules are built.

# kdhost_add_module(NAME SOURCE ...) builds NAME.tvx. Only what a source marks is exported, and nothing keeps the module
# mapped once it is unloaded, hence no unique symbols.
function(kdhost_add_module name)
    add_library(${name} MODULE ${ARGN})
    target_link_libraries(${name} PRIVATE kdhost::sdk)
    target_compile_options(${name} PRIVATE -fvisibility=hidden -fvisibility-inlines-hidden -fno-gnu-unique)
    target_link_options(${name} PRIVATE -Wl,-z,defs)
    set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".tvx" CXX_EXTENSIONS OFF)
endfunction()

# kdhost_add_resources(NAME FILE ...) builds NAME.dll. Texts (LANGUAGE.tsv) come to lie under "strings", every other file
# under its bare name in a folder called NAME again: dialogs and menus (.ui), translations (.qm), pictures (.png).
function(kdhost_add_resources name)
    set(entries "")
    foreach(file IN LISTS ARGN)
        get_filename_component(path ${file} ABSOLUTE)
        get_filename_component(alias ${file} NAME)
        set(folder ${name})
        if(alias MATCHES "\\.tsv$")
            set(folder strings)
        elseif(alias MATCHES "\\.png$")
            string(REGEX REPLACE "\\.png$" "" alias ${alias})
        endif()
        string(APPEND entries "    <file alias=\"${folder}/${alias}\">${path}</file>\n")
    endforeach()
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
    file(CONFIGURE OUTPUT ${list}
         CONTENT "<RCC>\n  <qresource prefix=\"/${name}\">\n${entries}  </qresource>\n</RCC>\n")
    qt5_add_resources(compiled ${list})
    add_library(${name} MODULE ${compiled})
    target_link_libraries(${name} PRIVATE Qt5::Core)
    target_compile_options(${name} PRIVATE -fvisibility=hidden -fno-gnu-unique)
    set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".dll")
endfunction()
