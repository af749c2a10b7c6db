# What is installed, and the Debian package of it: cpack --preset package

# The libraries are the program's own, so they stand in a directory of its own, where the program looks for them relative
# to itself: an unpacked package works wherever it lies.
set(private_libraries lib/${CMAKE_LIBRARY_ARCHITECTURE}/vpnval)
set_target_properties(vpnval PROPERTIES INSTALL_RPATH "$ORIGIN/../${private_libraries}")
install(TARGETS vpnval RUNTIME DESTINATION bin)
set_target_properties(vpnval_maintenance PROPERTIES INSTALL_RPATH "$ORIGIN/../../${private_libraries}")
install(TARGETS vpnval_maintenance RUNTIME DESTINATION libexec/vpnval)
install(TARGETS element_host config_validate_vpn LIBRARY DESTINATION ${private_libraries})
# To be put into an element's folder: docs/recording.md.
if(TARGET config_validate_vpn_recorder)
  install(TARGETS config_validate_vpn_recorder LIBRARY DESTINATION ${private_libraries})
endif()

if(TARGET vpnval_agent)
  install(TARGETS vpnval_agent LIBRARY DESTINATION ${private_libraries}/agent)
  install(TARGETS vpnval_subsystem RUNTIME DESTINATION ${private_libraries}/agent)
endif()
install(FILES src/agent/yang/vpnval-agent.yang DESTINATION share/vpnval/yang)

file(GLOB yang_modules CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/yang/*.yang)
install(FILES ${yang_modules} DESTINATION share/vpnval/yang)

# For many commits: docs/many-commits.md. The schemas are those of the documents that the program reads and prints.
file(GLOB schemas CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/*.schema.json)
install(PROGRAMS tools/decide_chunk tools/decide_indexed DESTINATION share/vpnval)
install(FILES docs/kubernetes-commits.yaml DESTINATION share/doc/vpnval)
install(FILES tools/sum_up.jq DESTINATION share/vpnval)
install(FILES ${schemas} DESTINATION share/vpnval/schemas)
install(DIRECTORY examples DESTINATION share/doc/vpnval)

install(FILES completions/vpnval.bash DESTINATION share/bash-completion/completions RENAME vpnval)
install(FILES completions/_vpnval DESTINATION share/zsh/vendor-completions)

# Without name and time inside, so that the same page is the same file.
function(add_compressed source file)
  add_custom_command(
    OUTPUT ${file}
    COMMAND gzip -9nc ${source} > ${file}
    DEPENDS ${source}
    VERBATIM)
endfunction()

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share)
set(compressed_files ${CMAKE_BINARY_DIR}/share/changelog.gz)
add_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_BINARY_DIR}/share/changelog.gz)
install(FILES ${CMAKE_BINARY_DIR}/share/changelog.gz packaging/copyright DESTINATION share/doc/vpnval)

file(GLOB man_pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/man/*.1)
foreach(page IN LISTS man_pages)
  get_filename_component(name ${page} NAME)
  set(compressed ${CMAKE_BINARY_DIR}/share/${name}.gz)
  add_compressed(${page} ${compressed})
  install(FILES ${compressed} DESTINATION share/man/man1)
  list(APPEND compressed_files ${compressed})
endforeach()
add_custom_target(compressed_files ALL DEPENDS ${compressed_files})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vpnval)
set(CPACK_PACKAGE_CONTACT "vpnval maintainers <maintainers@vpnval.invalid>")
set(CPACK_PACKAGE_VENDOR "vpnval maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "check commits of MPLS layer-2 VPN configuration off the network element")
set(CPACK_PACKAGE_DESCRIPTION
    "vpnval loads the validation library of a network element outside of the element\nand has it decide a change of VPLS and VPWS configuration: accepted, rejected with\na message, or accepted with a warning.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "jq")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "netconfd, openssh-client, openssh-server")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
include(CPack)
