# The guide is not made where a page names a picture that is not there, nor where a picture is shown
# by no page.
#
#     cmake -DPYTHON=PROGRAM -DMAKE=make_guide.py -DPICTURES=FOLDER -DWORK=FOLDER -P check_guide.cmake

cmake_minimum_required(VERSION 3.25)

# Makes the guide and expects that it fails with these words.
function(expect_failure words)
  execute_process(COMMAND ${PYTHON} ${MAKE} ${WORK}/pictures ${WORK}/guide
      RESULT_VARIABLE code ERROR_VARIABLE said OUTPUT_QUIET)
  if(code EQUAL 0 OR NOT said MATCHES "${words}")
    message(FATAL_ERROR "Expected was \"${words}\", but it ended with ${code} and said: ${said}")
  endif()
  if(EXISTS ${WORK}/guide)
    message(FATAL_ERROR "There are pages, although something is wrong")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
file(COPY ${PICTURES}/ DESTINATION ${WORK}/pictures)
file(RENAME ${WORK}/pictures/chest.png ${WORK}/pictures/nobody-shows-this.png)
expect_failure("index.html shows pictures/chest.png, which no scenario makes")
file(COPY ${PICTURES}/chest.png DESTINATION ${WORK}/pictures)
expect_failure("pictures/nobody-shows-this.png is made, but no page shows it")
file(REMOVE_RECURSE ${WORK})
