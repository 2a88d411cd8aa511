# cmake -DHOMES=<folder;...> -P FreshHomes.cmake: makes each folder new, with the run-time folder only its owner may read.
foreach(home IN LISTS HOMES)
    file(REMOVE_RECURSE "${home}")
    file(MAKE_DIRECTORY "${home}/config" "${home}/data" "${home}/cache" "${home}/run")
    file(CHMOD "${home}/run" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endforeach()
