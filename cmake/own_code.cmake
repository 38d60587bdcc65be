# What every target of this project is compiled with.

function(own_code target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII)
    # In a batch every source is an included file, where a class of local parts would be a mistake.
    if(CMAKE_UNITY_BUILD)
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    if(KD_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()
