# The Python package: Debian's interpreter with numpy and pytest, the package as it stands in the sources.
foreach(python /usr/bin/python3 python3)
    execute_process(COMMAND ${python} -c "import numpy, pytest" RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
    if(status EQUAL 0 AND TARGET kitlib_loops)
        file(GLOB python_tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/python/tests/test_*.py)
        foreach(file ${python_tests})
            get_filename_component(name ${file} NAME_WE)
            string(REPLACE "test_" "python." name ${name})
            add_test(NAME ${name} COMMAND ${python} -m pytest -q -p no:cacheprovider ${file}
                     WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
            set_tests_properties(${name} PROPERTIES ENVIRONMENT
                "PYTHONPATH=${PROJECT_SOURCE_DIR}/python;KITLIB_LIBRARY_DIR=${PROJECT_BINARY_DIR};PYTHONDONTWRITEBYTECODE=1")
        endforeach()
        break()
    endif()
endforeach()
