# A second form from one source: twin_form(TARGET FORM TWIN). The build makes TWIN.ui from FORM.ui
# under the other class name, so that the two look alike and each keeps its own translation context.
# The made forms lie in forms/ of the target's build folder, which is where lupdate finds them.
function(twin_form target form twin)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${form}.ui)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/forms)
    file(READ ${source} text)
    string(REPLACE ${form} ${twin} text "${text}")
    file(CONFIGURE OUTPUT ${folder}/${twin}.ui CONTENT "${text}" @ONLY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    set_property(TARGET ${target} PROPERTY AUTOUIC_SEARCH_PATHS ${folder})
endfunction()
