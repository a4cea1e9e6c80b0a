#!/bin/bash
# old_processor_test.sh BUILD: the module on an x86-64 processor of 2003, by qemu: no SSE3 and later, no AES-NI, no BMI. What is
# not behind a question to the processor would be an illegal instruction there. Known answers come from files, and the
# module's own tests run as it is loaded and once more.
set -euo pipefail
build=$1
old=(qemu-x86_64 -cpu Opteron_G1)

# The emulated processor does refuse.
status=0
"${old[@]}" "$build/wide_instruction" 2>/dev/null || status=$?
if [ "$status" -ne 132 ]; then
    echo "wide_instruction: status $status, not that of an illegal instruction"
    exit 1
fi

"${old[@]}" "$build/load_module" "$build/libzulcore.so" time
"${old[@]}" "$build/unit" --gtest_brief=1 --gtest_filter='*Vectors*:*MeetsItsStandard*:*MeetFips*:*Split*:*Encod*:Drbg*'
"${old[@]}" "$build/api" --gtest_brief=1 --gtest_filter='Threads*:Signature*:Context*:Aead*:X509Query*:CmsVerify*'

# A virtual machine may lack PCLMULQDQ, though every processor with AES-NI has it.
qemu-x86_64 -cpu Westmere,-pclmulqdq "$build/load_module" "$build/libzulcore.so" time
