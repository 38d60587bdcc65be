# What every target of this project is compiled with.

function(own_code target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII)
    if(KD_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()
