# Packs what CPack packed anew. CPack takes the files in the folder's own order and writes down who
# built them and when; here they are sorted, their times are SOURCE_DATE_EPOCH, and the builder stays
# out.
cmake_path(GET CPACK_PACKAGE_FILES PARENT_PATH staging)
file(GLOB_RECURSE files RELATIVE ${staging} ${staging}/${CPACK_PACKAGE_FILE_NAME}/*)
list(SORT files)
file(REMOVE ${CPACK_PACKAGE_FILES})
execute_process(
  COMMAND touch --date=@$ENV{SOURCE_DATE_EPOCH} ${files}
  WORKING_DIRECTORY ${staging} COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND zip -q -X ${CPACK_PACKAGE_FILES} ${files}
  WORKING_DIRECTORY ${staging} COMMAND_ERROR_IS_FATAL ANY)
