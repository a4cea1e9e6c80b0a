# A file that one person alone can open.
. "$(dirname "$0")/common.sh"
echo "a report" >report.txt
# [show]
# Bob, once: the identity is his secret, the recipient that it prints is for everybody.
bob=$(zul identity bob.key)

# Alice; a second -r would seal it for one more.
zul seal -r "$bob" report.txt              # writes report.txt.age

# Bob:
zul open -i bob.key report.txt.age opened.txt
# [end]
cmp report.txt opened.txt
age -d -i bob.key report.txt.age | cmp report.txt
