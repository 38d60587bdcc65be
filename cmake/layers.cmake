# The layers include one another in one direction only; a build that breaks this stops here.

# Fails when a source under `folder` includes a header whose path matches `pattern`.
function(forbid_includes folder pattern)
    file(GLOB_RECURSE sources ${CMAKE_SOURCE_DIR}/${folder}/*.h ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    foreach(source IN LISTS sources)
        file(STRINGS ${source} lines REGEX "^#include [\"<](\\.\\./)*${pattern}")
        if(lines)
            message(FATAL_ERROR "${source} may not include: ${lines}")
        endif()
    endforeach()
endfunction()

function(check_layers)
    forbid_includes(sdk "(host|module|tests)/")
    forbid_includes(host "(module|tests)/")
    forbid_includes(module "(host|tests)/")

    # Inside the host.
    set(ground "(db|field|draw|file|ed|ad|mfc|ui|app)")
    foreach(room ge win32 text)
        forbid_includes(host/${room} "host/${ground}/")
    endforeach()
    forbid_includes(host/rx "host/${ground}/")
    forbid_includes(host/db "host/(field|draw|file|ed|ad|mfc|ui|app)/")
    forbid_includes(host/field "host/(draw|file|ed|ad|mfc|ui|app)/")
    forbid_includes(host/draw "host/(field|file|ed|ad|mfc|ui|app)/")
    forbid_includes(host/file "host/(draw|ed|ad|mfc|ui|app)/")
    forbid_includes(host/ed "host/(file|ad|mfc|ui|app)/")
    forbid_includes(host/ad "host/(mfc|ui|app)/")
    forbid_includes(host/mfc "host/(db|field|draw|file|ed|ad|ui|app)/")
    forbid_includes(host/ui "host/app/")

    # Inside the module.
    forbid_includes(module/valuetext "module/(core|controls|preview|create|style|edit|exchange|frame)/")
    forbid_includes(module/core "module/(valuetext|controls|preview|create|style|edit|exchange|frame)/")
    forbid_includes(module/preview "module/(controls|create|style|edit|exchange|frame)/")
    forbid_includes(module/exchange "module/(create|edit|style|frame)/")
    forbid_includes(module/style "module/(create|edit|exchange|frame)/")
    # The controls of dialogs stand on the ground alone and serve every dialog.
    forbid_includes(module/controls "module/(preview|create|edit|exchange|frame|style)/")
    forbid_includes(module/create "module/(edit|frame)/")
    forbid_includes(module/edit "module/frame/")
endfunction()
